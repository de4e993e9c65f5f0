#include "ui/messages/ObjectFiles.h"

#include "images/EmsPicture.h"
#include "images/PLAnyBmp.h"
#include "images/PLAnyPicDecoder.h"
#include "images/PLTextException.h"
#include "messaging/EmsMelody.h"
#include "platform/Files.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr uint64_t largestMelodyFile = 1024 * 1024;

ObjectFile Fault(Word words) {
    return {.fault = QWords(words)};
}

}  // namespace

ObjectFile ReadPictureFile(const std::filesystem::path& path) try {
    PLAnyBmp bitmap;
    PLAnyPicDecoder().decodeFile(path, bitmap);
    switch (CheckEmsPicture(bitmap)) {
        case EmsPictureFit::NotMonochrome:
            return Fault(Word::PictureNotMonochrome);
        case EmsPictureFit::TooWide:
        case EmsPictureFit::TooHigh:
            return Fault(Word::PictureTooLong);
        case EmsPictureFit::TooLarge:
            return Fault(Word::PictureTooLarge);
        case EmsPictureFit::Fits:
            break;
    }
    const EmsPicture picture = MakeEmsPicture(bitmap);
    return {MessageObject::Picture({reinterpret_cast<const char*>(picture.bits.data()), picture.bits.size()},
                                   picture.width, picture.height)};
} catch (const PLTextException&) {
    return Fault(Word::InvalidImage);
}

ObjectFile ReadMelodyFile(const std::filesystem::path& path) {
    const auto content = ReadFile(path, largestMelodyFile);
    if (!content) return Fault(Word::MelodyNotOpened);
    switch (CheckEmsMelody(*content)) {
        case EmsMelodyFit::NotIMelody:
            return Fault(Word::FileNotIMelody);
        case EmsMelodyFit::TooLarge:
            return Fault(Word::MelodyTooLarge);
        case EmsMelodyFit::Fits:
            break;
    }
    return {MessageObject::Melody(*content)};
}

}  // namespace tarnbridge
