#pragma once

namespace tarnbridge {

/// The root of the image layer's classes, whose objects have no copies and are used by one thread at a time.
class PLObject {
public:
    PLObject() = default;
    PLObject(const PLObject&) = delete;
    PLObject& operator=(const PLObject&) = delete;
    virtual ~PLObject() = default;
};

}  // namespace tarnbridge
