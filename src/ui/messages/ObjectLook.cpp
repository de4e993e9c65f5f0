#include "ui/messages/ObjectLook.h"

#include <iterator>

#include "messaging/ems/EmsObjects.h"
#include "platform/Text.h"
#include "ui/QtText.h"

namespace tarnbridge {
namespace {

constexpr Word soundNames[] = {Word::SoundChimesHigh, Word::SoundChimesLow, Word::SoundDing,
                               Word::SoundTaDa,       Word::SoundNotify,    Word::SoundDrum,
                               Word::SoundClaps,      Word::SoundFanfare,   Word::SoundChordHigh,
                               Word::SoundChordLow};
constexpr Word animationNames[] = {
    Word::AnimationIronic,      Word::AnimationGlad,    Word::AnimationSceptic,  Word::AnimationSad,
    Word::AnimationWow,         Word::AnimationCrying,  Word::AnimationWinking,  Word::AnimationLaughing,
    Word::AnimationIndifferent, Word::AnimationInLove,  Word::AnimationConfused, Word::AnimationTongue,
    Word::AnimationAngry,       Word::AnimationGlasses, Word::AnimationDevil};
static_assert(std::size(soundNames) == mostPredefinedSounds);
static_assert(std::size(animationNames) == mostPredefinedAnimations);

constexpr qsizetype longestName = 40;

/// The value of the first line `KEY:value` or `KEY;parameters:value`, as vCard 2.1 and vCalendar 1.0 write
/// them. It is for people to recognise something: what isn't understood is shown as it stands.
QString FieldOf(const std::string& content, const QByteArray& key) {
    const QByteArray bytes = QByteArray::fromStdString(content);
    for (const QByteArray& line : bytes.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        const QByteArray head = line.left(colon).trimmed().toUpper();
        if (colon < 0 || (head != key && !head.startsWith(key + ';'))) continue;
        QByteArray value = line.mid(colon + 1);
        if (head.contains("QUOTED-PRINTABLE")) value = QByteArray::fromPercentEncoding(value, '=');
        QString text = ToQString(Utf8ToText(value.toStdString()));
        text.replace(u';', u' ');
        text.removeIf([](QChar character) { return !character.isPrint() && !character.isSurrogate(); });
        return text.simplified().left(longestName);
    }
    return {};
}

QString Named(Word kind, const QString& name) {
    return name.isEmpty() ? QWords(kind) : QWords(Word::ObjectNamed, {Words(kind), ToText(name)});
}

int BitsOf(const MessageObject& object, int bit, int count) {
    int value = 0;
    for (int i = bit; i < bit + count; ++i) {
        const auto byte = static_cast<uint8_t>(object.bytes[static_cast<size_t>(i / 8)]);
        value = value * 2 + (byte >> (7 - i % 8) & 1);
    }
    return value;
}

/// 3GPP TS 23.040, E.3 to E.5.
QRgb ColourOfPixel(int value, int depth) {
    constexpr int level = 0xFF / 3;
    if (depth == 1) return value ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
    if (depth == 2) return qRgb(value * level, value * level, value * level);
    return qRgb((value >> 4 & 3) * level, (value >> 2 & 3) * level, (value & 3) * level);
}

}  // namespace

QString NameOfObject(const MessageObject& object) {
    const EmsObjectData& data = object.attributes;
    switch (object.kind) {
        case EmsKind::PredefinedSound:
            return QWords(Word::ObjectSound, {object.number});
        case EmsKind::PredefinedAnimation:
            return QWords(Word::ObjectPredefinedAnimation, {object.number});
        case EmsKind::Melody:
            return QWords(Word::ObjectMelody);
        case EmsKind::Animation:
            return QWords(Word::ObjectAnimation, {data.width, data.height});
        case EmsKind::Picture:
            return QWords(Word::ObjectPicture, {data.width, data.height});
        case EmsKind::VCard: {
            const QString name = FieldOf(object.bytes, "FN");
            return Named(Word::ObjectCard, name.isEmpty() ? FieldOf(object.bytes, "N") : name);
        }
        case EmsKind::VCalendar:
            return Named(Word::ObjectCalendar, FieldOf(object.bytes, "SUMMARY"));
        case EmsKind::TextFormat:
            break;
    }
    return {};
}

QString DescriptionOfObject(const MessageObject& object) {
    const QString name = NameOfObject(object);
    const auto with = [&](Word meaning) { return QWords(Word::ObjectNamed, {ToText(name), Words(meaning)}); };
    if (object.kind == EmsKind::PredefinedSound && object.number < std::size(soundNames))
        return with(soundNames[object.number]);
    if (object.kind == EmsKind::PredefinedAnimation && object.number < std::size(animationNames))
        return with(animationNames[object.number]);
    return name;
}

QString IconOfObject(const MessageObject& object) {
    switch (object.kind) {
        case EmsKind::PredefinedSound:
        case EmsKind::Melody:
            return QStringLiteral("melodies");
        case EmsKind::PredefinedAnimation:
        case EmsKind::Animation:
            return QStringLiteral("play");
        case EmsKind::Picture:
            return QStringLiteral("images");
        case EmsKind::VCard:
            return QStringLiteral("phonebook");
        default:
            return QStringLiteral("attachment");
    }
}

int FrameCount(const MessageObject& object) {
    const EmsObjectData& data = object.attributes;
    const bool isImage = object.kind == EmsKind::Picture || object.kind == EmsKind::Animation;
    const bool isDepth = data.depth == 1 || data.depth == 2 || data.depth == 6;
    if (!isImage || !isDepth || data.width == 0 || data.height == 0) return 0;
    const int frames = object.kind == EmsKind::Picture ? 1 : data.frames;
    const auto size = static_cast<size_t>(BitmapSize(data.width, data.height, data.depth));
    return object.bytes.size() >= size * static_cast<size_t>(frames) ? frames : 0;
}

QImage FrameOf(const MessageObject& object, int frame) {
    if (frame < 0 || frame >= FrameCount(object)) return {};
    const EmsObjectData& data = object.attributes;
    QImage image(data.width, data.height, QImage::Format_RGB32);
    int bit = frame * BitmapSize(data.width, data.height, data.depth) * 8;
    for (int y = 0; y < data.height; ++y) {
        for (int x = 0; x < data.width; ++x, bit += data.depth)
            image.setPixel(x, y, ColourOfPixel(BitsOf(object, bit, data.depth), data.depth));
    }
    return image;
}

}  // namespace tarnbridge
