#pragma once

#include <QPalette>

namespace orvana
{

/// Two palettes for pictures, which are made without a desktop that says what colours to use.
QPalette lightPalette();
QPalette darkPalette();

} // namespace orvana
