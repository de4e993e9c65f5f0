#pragma once

#include "images/PLBmp.h"

namespace tarnbridge {

/// A bitmap in plain memory, the rows one behind the other.
class PLAnyBmp : public PLBmp {
protected:
    std::vector<uint8_t*> allocate(size_t rowBytes, int height) override;

private:
    std::vector<uint8_t> pixels_;
};

}  // namespace tarnbridge
