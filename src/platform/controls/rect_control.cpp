#include "platform/controls/rect_control.h"

#include <algorithm>

namespace dunvey {

void RectControl::SetDesign(const Bounds& place, const Locks& locks) {
    design_ = place;
    locks_ = locks;
    Put(place_, place);
}

void RectControl::Follow(int64_t wider, int64_t higher) {
    const auto follow = [](int64_t& start, int64_t& extent, bool near, bool far, int64_t by) {
        if (!far) return;
        if (near) {
            extent = std::max<int64_t>(0, extent + by);
        } else {
            start += by;
        }
    };
    Bounds place = design_;
    follow(place.Left, place.Width, locks_.Left, locks_.Right, wider);
    follow(place.Top, place.Height, locks_.Top, locks_.Bottom, higher);
    Put(place_, place);
}

}  // namespace dunvey
