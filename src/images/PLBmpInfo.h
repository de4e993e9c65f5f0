#pragma once

#include "images/PLObject.h"

namespace tarnbridge {

/// What a picture is like, apart from its pixels. 0 by 0 before there is one.
class PLBmpInfo : public PLObject {
public:
    int width() const { return width_; }    ///< pixels
    int height() const { return height_; }  ///< pixels
    int bitsPerPixel() const { return bitsPerPixel_; }
    bool hasAlpha() const { return hasAlpha_; }
    bool isGreyscale() const { return isGreyscale_; }

protected:
    void setInfo(int width, int height, int bitsPerPixel, bool hasAlpha, bool isGreyscale) {
        width_ = width;
        height_ = height;
        bitsPerPixel_ = bitsPerPixel;
        hasAlpha_ = hasAlpha;
        isGreyscale_ = isGreyscale;
    }

    void setInfo(const PLBmpInfo& other) {
        setInfo(other.width_, other.height_, other.bitsPerPixel_, other.hasAlpha_, other.isGreyscale_);
    }

private:
    int width_ = 0;
    int height_ = 0;
    int bitsPerPixel_ = 0;
    bool hasAlpha_ = false;
    bool isGreyscale_ = false;
};

}  // namespace tarnbridge
