#include "images/PLAnyPicDecoder.h"

#include "images/PLFileType.h"
#include "images/PLTextException.h"

namespace tarnbridge {

void PLAnyPicDecoder::decodeFile(const std::filesystem::path& name, PLBmp& bitmap) {
    PLFileSource file(name);
    open(file);
    try {
        decodeInto(bitmap);
    } catch (...) {
        close();
        throw;
    }
    close();
}

void PLAnyPicDecoder::readHeader() {
    const size_t left = source().size() - source().position();
    switch (RecognisePicture(source().name(), source().peekBytes(left))) {
        case PLFileType::Ems:
            trace("EMS file recognized.\n");
            chosen_ = &ems_;
            break;
        case PLFileType::Wbmp:
            trace("WBMP file recognized.\n");
            chosen_ = &wbmp_;
            break;
        case PLFileType::Unknown:
            throw PLTextException(PLError::UnknownFileType, "Unknown file type.");
        default:
            throw PLTextException(PLError::NotCompiledIn, "Library not compiled for this file type.");
    }
    chosen_->open(source());
    setInfo(*chosen_);
}

void PLAnyPicDecoder::decodeInto(PLBmp& bitmap) {
    source();
    chosen_->decodeInto(bitmap);
}

void PLAnyPicDecoder::close() {
    if (chosen_) chosen_->close();
    chosen_ = nullptr;
    PLPicDecoder::close();
}

void PLAnyPicDecoder::setTrace(const PLTrace& trace) {
    PLPicDecoder::setTrace(trace);
    ems_.setTrace(trace);
    wbmp_.setTrace(trace);
}

}  // namespace tarnbridge
