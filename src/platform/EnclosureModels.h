#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace orvana::platform
{

/// The maker's Thunderbolt vendor number.
inline constexpr std::int64_t MakerVendor = 65;

/// The model numbers of the enclosures with four bays.
inline constexpr std::array<std::int64_t, 2> FourBayModels{567, 568};

constexpr bool isFourBayModel(std::int64_t model)
{
    return std::find(FourBayModels.begin(), FourBayModels.end(), model) != FourBayModels.end();
}

} // namespace orvana::platform
