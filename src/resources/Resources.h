#pragma once

namespace orvana
{

/// Makes the images of the program available under ":/"; each program with windows calls it once, first.
void loadResources();

} // namespace orvana
