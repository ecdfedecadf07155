#pragma once

#include <QPalette>

namespace orvana
{

/// Two palettes for pictures, where no desktop says what colours to use.
QPalette lightPalette();
QPalette darkPalette();

} // namespace orvana
