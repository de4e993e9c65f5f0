#include "ui/messages/MessageDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <algorithm>

#include "messaging/ems/EmsFormats.h"
#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/messages/MessageLook.h"
#include "ui/messages/ObjectLook.h"

namespace tarnbridge {
namespace {

constexpr int objectType = QTextFormat::UserObject + 1;

// In pixels that don't depend on the screen's resolution.
constexpr int largestImage = 192;  // up to which small ones are enlarged
constexpr int mostEnlarged = 3;
constexpr int imageMargin = 2;
constexpr int widestLabel = 260;
constexpr int labelPadding = 6;
constexpr int labelMargin = 2;

constexpr int tickMilliseconds = 100;  // the unit of an animation's frame time
constexpr int usualTicks = 4;          // for an animation that doesn't tell its frame time

bool SameObject(const MessageObject& first, const MessageObject& second) {
    const EmsObjectData& one = first.attributes;
    const EmsObjectData& other = second.attributes;
    return first.kind == second.kind && first.number == second.number && first.bytes == second.bytes &&
           one.depth == other.depth && one.width == other.width && one.height == other.height &&
           one.frames == other.frames && one.animationHigh == other.animationHigh;
}

bool SameAt(const ShownMessage& first, int at, const ShownMessage& second, int otherAt) {
    const char16_t unit = first.Text()[static_cast<size_t>(at)];
    if (unit != second.Text()[static_cast<size_t>(otherAt)]) return false;
    if (!SameFormat(first.FormatAt(at), second.FormatAt(otherAt))) return false;
    return unit != objectCharacter || SameObject(*first.ObjectAt(at), *second.ObjectAt(otherAt));
}

/// Whether a position is inside a surrogate pair.
bool CutsPair(const ShownMessage& message, int position) {
    if (position <= 0 || position >= message.Length()) return false;
    const std::u16string_view text = message.TextOf(position - 1, position + 1);
    return QChar::isHighSurrogate(text[0]) && QChar::isLowSurrogate(text[1]);
}

/// The stretch from `begin` in which two messages differ, without parts of a surrogate pair.
struct Difference {
    int begin = 0;
    int firstEnd = 0;
    int secondEnd = 0;
};

Difference DifferenceOf(const ShownMessage& first, const ShownMessage& second) {
    const int shorter = std::min(first.Length(), second.Length());
    int begin = 0;
    while (begin < shorter && SameAt(first, begin, second, begin))
        ++begin;
    if (CutsPair(first, begin) || CutsPair(second, begin)) --begin;
    int common = 0;
    while (common < shorter - begin &&
           SameAt(first, first.Length() - 1 - common, second, second.Length() - 1 - common))
        ++common;
    if (CutsPair(first, first.Length() - common) || CutsPair(second, second.Length() - common)) --common;
    return {begin, first.Length() - common, second.Length() - common};
}

}  // namespace

MessageDocument::MessageDocument(QObject* parent) : QTextDocument(parent) {
    setUndoRedoEnabled(false);
    documentLayout()->registerHandler(objectType, this);
    timer_.setInterval(tickMilliseconds);
    connect(&timer_, &QTimer::timeout, this, &MessageDocument::Tick);
}

void MessageDocument::Show(const ShownMessage& message, const EmsTextFormat& atEnd) {
    const bool isKnown = characterCount() - 1 == shown_.Length();
    const Difference difference = DifferenceOf(shown_, message);
    shown_ = message;
    atEnd_ = atEnd;
    if (isKnown)
        Write(difference.begin, difference.firstEnd, difference.secondEnd);
    else
        Rewrite();
    RunTimer();
}

void MessageDocument::ShowText(const std::u16string& text) {
    shown_ = {};
    setPlainText(ToQString(text));
    RunTimer();
}

void MessageDocument::Rewrite() {
    Write(0, characterCount() - 1, shown_.Length());
}

/// Calls `use(begin, end, look)` for each object and each stretch of text of one look.
template <typename Use>
void MessageDocument::ForEachPiece(int from, int to, Use use) const {
    for (const ShownRun& run : shown_.Runs()) {
        const int end = std::min(run.end, to);
        for (int at = std::max(run.begin, from); at < end;) {
            int pieceEnd = at + 1;
            if (!shown_.ObjectAt(at)) {
                while (pieceEnd < end && !shown_.ObjectAt(pieceEnd))
                    ++pieceEnd;
            }
            use(at, pieceEnd, FormatOf(at));
            at = pieceEnd;
        }
    }
}

QTextCharFormat MessageDocument::FormatOf(int position) const {
    QTextCharFormat look = CharacterFormat(shown_.FormatAt(position), palette_);
    if (const MessageObject* const object = shown_.ObjectAt(position)) {
        look.setObjectType(objectType);
        if (FrameCount(*object) == 0) look.setVerticalAlignment(QTextCharFormat::AlignMiddle);
    }
    return look;
}

void MessageDocument::Write(int from, int oldEnd, int newEnd) {
    QTextCursor cursor(this);
    cursor.beginEditBlock();
    cursor.setPosition(from);
    cursor.setPosition(oldEnd, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    ForEachPiece(from, newEnd, [&](int begin, int end, const QTextCharFormat& look) {
        cursor.insertText(ToQString(shown_.TextOf(begin, end)), look);
    });
    Align(from, newEnd);
    cursor.endEditBlock();
}

void MessageDocument::Align(int from, int to) {
    for (QTextBlock block = findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        int first = block.position();
        const int end = shown_.LineEnd(first);
        while (first < end && shown_.ObjectAt(first))
            ++first;
        const Qt::Alignment alignment = LineAlignment(first < end ? shown_.FormatAt(first) : atEnd_);
        if (block.blockFormat().intProperty(QTextFormat::BlockAlignment) == static_cast<int>(alignment))
            continue;
        QTextBlockFormat line;
        line.setAlignment(alignment);
        QTextCursor(block).setBlockFormat(line);
    }
}

void MessageDocument::SetPalette(const QPalette& palette) {
    palette_ = palette;
    QTextCursor cursor(this);
    cursor.beginEditBlock();
    ForEachPiece(0, shown_.Length(), [&](int begin, int end, const QTextCharFormat& look) {
        cursor.setPosition(begin);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        cursor.setCharFormat(look);
    });
    cursor.endEditBlock();
}

void MessageDocument::SetScale(qreal scale) {
    scale_ = scale;
    markContentsDirty(0, characterCount());
}

void MessageDocument::SetAnimated(bool animated) {
    animated_ = animated;
    RunTimer();
}

void MessageDocument::RunTimer() {
    const auto runs = [](const ShownObject& shown) { return FrameCount(shown.object) > 1; };
    const bool needed = animated_ && std::any_of(shown_.Objects().begin(), shown_.Objects().end(), runs);
    if (needed == timer_.isActive()) return;
    if (needed)
        timer_.start();
    else
        timer_.stop();
}

void MessageDocument::Tick() {
    const int before = tick_++;
    for (const ShownObject& shown : shown_.Objects()) {
        if (FrameAt(shown.object, before) != FrameAt(shown.object, tick_))
            Q_EMIT documentLayout()->update(ObjectRect(shown.position));
    }
}

/// The time of a frame is in the upper half of the control octet of 3GPP TS 23.040, E.7.
int MessageDocument::FrameAt(const MessageObject& object, int tick) const {
    const int frames = FrameCount(object);
    const int asked = object.attributes.animationHigh;
    const int ticks = asked > 0 ? asked + 1 : usualTicks;
    return frames > 1 ? tick / ticks % frames : 0;
}

QRectF MessageDocument::ObjectRect(int position) const {
    const QTextBlock block = findBlock(position);
    const QRectF bounds = documentLayout()->blockBoundingRect(block);
    const int inBlock = position - block.position();
    const QTextLine line = block.layout()->lineForTextPosition(inBlock);
    if (!line.isValid()) return bounds;
    const qreal begin = line.cursorToX(inBlock);
    const qreal end = line.cursorToX(inBlock + 1);
    return QRectF(std::min(begin, end), line.y(), std::abs(end - begin), line.height())
        .translated(bounds.topLeft());
}

int MessageDocument::ObjectAt(const QPointF& place) const {
    for (const ShownObject& shown : shown_.Objects()) {
        if (ObjectRect(shown.position).contains(place)) return shown.position;
    }
    return -1;
}

QString MessageDocument::ObjectWords() const {
    QStringList names;
    for (const ShownObject& shown : shown_.Objects())
        names << DescriptionOfObject(shown.object);
    return names.join(QStringLiteral("; "));
}

qreal MessageDocument::DeviceRatio() const {
    const QPaintDevice* const device = documentLayout()->paintDevice();
    return device ? device->devicePixelRatioF() : 1;
}

/// Pixels of the screen for one of the image.
int MessageDocument::FactorOf(const MessageObject& object) const {
    const int longest = std::max({object.attributes.width, object.attributes.height, uint8_t{1}});
    const int enlarged = std::clamp(largestImage / longest, 1, mostEnlarged);
    return std::max(1, qRound(enlarged * scale_ * DeviceRatio()));
}

QSizeF MessageDocument::intrinsicSize(QTextDocument*, int position, const QTextFormat&) {
    const MessageObject* const object = shown_.ObjectAt(position);
    if (!object) return {};
    if (FrameCount(*object) > 0) {
        const QSizeF image(object->attributes.width, object->attributes.height);
        return image * (FactorOf(*object) / DeviceRatio()) + QSizeF(2 * imageMargin, 2 * imageMargin);
    }
    const QFontMetricsF metrics(defaultFont());
    const qreal height = metrics.height() + 2 * labelMargin;
    const qreal width = metrics.horizontalAdvance(NameOfObject(*object)) + metrics.height() +
                        3 * labelPadding + 2 * labelMargin;
    return {std::min(width, widestLabel * scale_), height};
}

void MessageDocument::drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int position,
                                 const QTextFormat&) {
    const MessageObject* const object = shown_.ObjectAt(position);
    if (!object) return;
    painter->save();
    if (FrameCount(*object) > 0) {
        const qreal ratio = DeviceRatio();
        QImage image = FrameOf(*object, FrameAt(*object, tick_));
        image = image.scaled(image.size() * FactorOf(*object));
        image.setDevicePixelRatio(ratio);
        // On whole pixels of the screen, so that all pixels of the picture are of one size.
        const QPointF corner = painter->transform().map(rect.topLeft() + QPointF(imageMargin, imageMargin));
        const QPointF whole(std::round(corner.x() * ratio) / ratio, std::round(corner.y() * ratio) / ratio);
        const QPointF place = painter->transform().inverted().map(whole);
        const QRectF frame(place, QSizeF(image.size()) / ratio);
        painter->fillRect(frame.adjusted(-1, -1, 1, 1), palette_.color(QPalette::Mid));
        painter->drawImage(place, image);
    } else {
        const QRectF box = rect.adjusted(labelMargin, labelMargin, -labelMargin, -labelMargin);
        const qreal side = box.height() - labelMargin;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(palette_.color(QPalette::Mid));
        painter->setBrush(palette_.color(QPalette::Button));
        painter->drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), labelPadding, labelPadding);
        const QRectF icon(box.left() + labelPadding, box.center().y() - side / 2, side, side);
        ThemedIcon(IconOfObject(*object)).paint(painter, icon.toRect());
        const QRectF words = box.adjusted(2 * labelPadding + side, 0, -labelPadding, 0);
        // Points would be counted in the dots of a printer, whose scale the painter has already.
        QFont font = defaultFont();
        font.setPixelSize(QFontInfo(font).pixelSize());
        painter->setFont(font);
        painter->setPen(palette_.color(QPalette::ButtonText));
        const QFontMetricsF metrics(font);
        painter->drawText(words, Qt::AlignVCenter | Qt::AlignLeft,
                          metrics.elidedText(NameOfObject(*object), Qt::ElideRight, words.width() + 1));
    }
    painter->restore();
}

}  // namespace tarnbridge
