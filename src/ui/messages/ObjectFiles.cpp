#include "ui/messages/ObjectFiles.h"

#include <QImageReader>
#include <QPainter>
#include <vector>

#include "images/EmsPicture.h"
#include "images/PLAnyBmp.h"
#include "images/PLAnyPicDecoder.h"
#include "images/PLTextException.h"
#include "messaging/EmsMelody.h"
#include "platform/Files.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr size_t animationFrames = 4;
constexpr int darkest = 0x80;  // of what is white
constexpr uint64_t largestMelodyFile = 1024 * 1024;

ObjectFile Fault(Word words) {
    return {.fault = QWords(words)};
}

/// Row after row, from the highest bit on, 1 = black. The width is a multiple of 8.
std::string BitsOf(const QImage& frame) {
    QImage flat(frame.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, frame);
    std::string bits(static_cast<size_t>(flat.width() * flat.height() / 8), '\0');
    for (int pixel = 0; pixel < flat.width() * flat.height(); ++pixel) {
        const bool black = qGray(flat.pixel(pixel % flat.width(), pixel / flat.width())) < darkest;
        if (black) bits[static_cast<size_t>(pixel / 8)] |= static_cast<char>(0x80 >> pixel % 8);
    }
    return bits;
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

ObjectFile ReadAnimationFile(const std::filesystem::path& path) {
    QImageReader reader(PathToQString(path), "gif");
    const QSize size = reader.size();
    if (!reader.canRead() || !size.isValid()) return Fault(Word::InvalidImage);
    if (size != QSize(8, 8) && size != QSize(16, 16)) return Fault(Word::AnimationUnfit);
    std::vector<std::string> frames;
    for (QImage frame; frames.size() <= animationFrames && reader.read(&frame);)
        frames.push_back(BitsOf(frame));
    if (frames.empty()) return Fault(Word::InvalidImage);
    if (frames.size() > animationFrames) return Fault(Word::AnimationUnfit);
    std::string pixels;
    for (size_t i = 0; i < animationFrames; ++i)
        pixels += frames[i * frames.size() / animationFrames];
    return {MessageObject::Animation(pixels, size.width(), size.height(), animationFrames)};
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
