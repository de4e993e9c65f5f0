#include "images/PLPicDecoder.h"

#include "images/PLTextException.h"

namespace tarnbridge {

void PLPicDecoder::open(PLDataSource& source) {
    close();
    source_ = &source;
    try {
        readHeader();
    } catch (...) {
        close();
        throw;
    }
}

void PLPicDecoder::close() {
    source_ = nullptr;
    setInfo(0, 0, 0, false, false);
}

PLDataSource& PLPicDecoder::source() const {
    if (!source_) throw PLTextException(PLError::Invalid, "No source is open.");
    return *source_;
}

void PLPicDecoder::trace(std::string_view text) const {
    constexpr int level = 2;
    if (trace_) trace_(level, text);
}

}  // namespace tarnbridge
