#pragma once

#include <functional>
#include <string_view>

#include "images/PLBmp.h"
#include "images/PLDataSource.h"

namespace tarnbridge {

/// Takes what a decoder says about its work: a level, the more the less important, and a line with its end.
using PLTrace = std::function<void(int level, std::string_view text)>;

/// A decoder of one format. It tells, from open to close, what the picture is like. Everything throws
/// PLTextException.
class PLPicDecoder : public PLBmpInfo {
public:
    /// Reads the header at the source's place. The source must live until close. After an exception the
    /// decoder is closed.
    void open(PLDataSource& source);

    /// Creates the bitmap and fills it from the pixels that follow; once for each open. A file that ends
    /// early leaves the bitmap as it was.
    virtual void decodeInto(PLBmp& bitmap) = 0;

    virtual void close();

    virtual void setTrace(const PLTrace& trace) { trace_ = trace; }

protected:
    /// Called by open, with the source in place; sets the info.
    virtual void readHeader() = 0;

    /// Throws Invalid if none is open.
    PLDataSource& source() const;

    void trace(std::string_view text) const;

private:
    PLDataSource* source_ = nullptr;
    PLTrace trace_;
};

}  // namespace tarnbridge
