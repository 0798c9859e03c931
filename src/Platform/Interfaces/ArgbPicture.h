#pragma once

#include <cstdint>
#include <vector>

namespace tolvar {

/// A picture as plain values, for layers that know of no graphics.
struct ArgbPicture {
    int width = 0;
    int height = 0;
    /// Row by row from the top, `width` times `height` pixels, each 0xAARRGGBB with colours that
    /// are not multiplied by their opacity.
    std::vector<std::uint32_t> pixels;

    bool operator==(const ArgbPicture&) const = default;
};

} // namespace tolvar
