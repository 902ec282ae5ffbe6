#include "apps/preview/ZoomSteps.h"

namespace preview {

int LargerZoom(int zoom, double lampSize) {
    const double size = zoom == kFit ? lampSize : zoom;
    for (const int larger : kZooms) {
        if (larger > size)
            return larger;
    }
    return zoom;
}

int SmallerZoom(int zoom, double lampSize) {
    const double size = zoom == kFit ? lampSize : zoom;
    int smaller = zoom;
    for (const int candidate : kZooms) {
        if (candidate < size)
            smaller = candidate;
    }
    return smaller;
}

}  // namespace preview
