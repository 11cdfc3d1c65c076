#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/pictures/picture.h"

namespace dunvey {

/// Unpacks the run-length coding of icon files: a byte below 128 is followed by one more byte than
/// it says, any other by one byte that stands 125 times less than it says. Empty unless exactly
/// `count` bytes come out of the packed ones; what is behind them doesn't matter.
std::vector<uint8_t> UnpackRuns(std::string_view packed, size_t count);

/// A square bitmap from colour channels one after the other: red, green and blue, each of
/// `pixels` * `pixels` bytes. `alpha` is one more such channel; empty means opaque. Nil where the
/// lengths don't fit.
Ref<Bitmap> BitmapOfChannels(const std::vector<uint8_t>& colors, const std::vector<uint8_t>& alpha,
                             int64_t pixels);

}  // namespace dunvey
