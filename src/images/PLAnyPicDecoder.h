#pragma once

#include <filesystem>

#include "images/PLEMSDecoder.h"
#include "images/PLWBMPDecoder.h"

namespace tarnbridge {

/// Recognises a file by its name and content and lets the decoder of its format do the work. There are
/// decoders of .EMS files and wireless bitmaps; another type throws NotCompiledIn, and no known one
/// UnknownFileType.
class PLAnyPicDecoder : public PLPicDecoder {
public:
    /// Opens the file, decodes it and closes it, also when it throws.
    void decodeFile(const std::filesystem::path& name, PLBmp& bitmap);

    void decodeInto(PLBmp& bitmap) override;
    void close() override;
    void setTrace(const PLTrace& trace) override;

protected:
    void readHeader() override;

private:
    PLEMSDecoder ems_;
    PLWBMPDecoder wbmp_;
    PLPicDecoder* chosen_ = nullptr;
};

}  // namespace tarnbridge
