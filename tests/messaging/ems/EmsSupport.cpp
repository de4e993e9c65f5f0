#include "messaging/ems/EmsSupport.h"

#include <fmt/format.h>

#include "platform/Text.h"

namespace tarnbridge {

std::string FromHex(std::string_view hex) {
    std::string digits(hex);
    std::erase(digits, ' ');
    std::string bytes;
    for (size_t i = 0; i < digits.size(); i += 2) {
        bytes.push_back(static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

std::vector<std::string> Write(EmsMessage& message) {
    std::array<std::array<uint8_t, emsSegmentBuffer>, emsSegments> areas{};
    std::array<uint8_t*, emsSegments> buffers{};
    std::array<int, emsSegments> lengths{};
    for (int i = 0; i < emsSegments; ++i)
        buffers[i] = areas[i].data();
    int count = 0;
    EXPECT_EQ(Generate(&message, true, &count, buffers.data(), lengths.data()), EmsResult::Done);
    std::vector<std::string> segments;
    for (int i = 0; i < count; ++i)
        segments.emplace_back(reinterpret_cast<const char*>(buffers[i]), lengths[i]);
    return segments;
}

EmsResult Read(EmsMessage& message, bool hasHeader, const std::vector<std::string>& segments, uint8_t dcs) {
    std::vector<const uint8_t*> buffers;
    std::vector<int> lengths;
    // Copies of the exact size, so that a sanitizer sees what is read beyond them.
    std::vector<std::vector<uint8_t>> areas;
    for (const std::string& segment : segments)
        areas.emplace_back(segment.begin(), segment.end());
    static constexpr uint8_t nothing = 0;
    for (const auto& area : areas) {
        buffers.push_back(area.empty() ? &nothing : area.data());
        lengths.push_back(static_cast<int>(area.size()));
    }
    const std::vector<uint8_t> codings(segments.size(), dcs);
    return Parse(&message, hasHeader, static_cast<int>(segments.size()), buffers.data(), lengths.data(),
                 codings.data());
}

std::vector<std::pair<int, std::string>> Elements(const std::string& segment) {
    std::vector<std::pair<int, std::string>> elements;
    const size_t end = static_cast<uint8_t>(segment.at(0)) + 1U;
    for (size_t at = 1; at < end;) {
        const int number = static_cast<uint8_t>(segment.at(at));
        const size_t length = static_cast<uint8_t>(segment.at(at + 1));
        elements.emplace_back(number, segment.substr(at + 2, length));
        at += 2 + length;
    }
    return elements;
}

std::vector<std::string> Describe(const EmsMessage& message) {
    std::vector<std::string> lines;
    for (const EmsObject* node = message.first; node; node = node->next) {
        const EmsObjectData& data = node->data;
        const EmsTextFormat& format = node->format;
        if (node->kind == EmsKind::TextFormat) {
            lines.push_back(fmt::format("{:4} format {} {}{}{}{}{}{} {}/{}", node->position, format.length,
                                        format.size, format.alignment, format.bold, format.italic,
                                        format.underline, format.strikethrough, format.foreground,
                                        format.background));
            continue;
        }
        lines.push_back(fmt::format(
            "{:4} kind {} number {} extended {} reused {} flags {} {}x{}x{} frames {} {}/{} {}",
            node->position, static_cast<int>(node->kind), node->number, node->isExtended, node->isReused,
            data.flags, data.width, data.height, data.depth, data.frames, data.animationLow,
            data.animationHigh, BytesToHex({reinterpret_cast<const char*>(data.bytes), data.size})));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

std::vector<std::string> Formats(const EmsMessage& message) {
    std::vector<std::string> formats;
    for (const EmsObject* node = message.first; node; node = node->next) {
        if (node->kind != EmsKind::TextFormat) continue;
        const EmsTextFormat& format = node->format;
        const int octet = format.alignment | format.size | format.bold << 4 | format.italic << 5 |
                          format.underline << 6 | format.strikethrough << 7;
        formats.push_back(fmt::format("{}+{} {:02X}", node->position, format.length, octet));
    }
    return formats;
}

namespace {

void CheckList(const EmsMessage& message) {
    const EmsObject* previous = nullptr;
    std::vector<const EmsObject*> originals;
    for (const EmsObject* node = message.first; node; previous = node, node = node->next) {
        ASSERT_EQ(node->prev, previous);
        ASSERT_LE(node->position, message.textLength);
        ASSERT_EQ(node->position % 2, 0);
        if (previous) {
            ASSERT_LE(previous->position, node->position);
        }
        if (node->kind == EmsKind::TextFormat) {
            ASSERT_GT(node->format.length, 0);
            ASSERT_LE(node->position + node->format.length, message.textLength);
        } else if (previous && previous->position == node->position) {
            ASSERT_NE(previous->kind, EmsKind::TextFormat);
        }
        if (!node->isExtended) continue;
        const auto original = std::find_if(originals.begin(), originals.end(), [&](const EmsObject* other) {
            return other->reference == node->reference;
        });
        ASSERT_EQ(original != originals.end(), node->isReused != 0) << "reference " << int{node->reference};
        if (node->isReused) {
            ASSERT_EQ((*original)->data.bytes, node->data.bytes);
            ASSERT_EQ((*original)->kind, node->kind);
        } else {
            originals.push_back(node);
        }
    }
    ASSERT_EQ(message.last, previous);
}

void CheckCursor(const EmsMessage& message) {
    ASSERT_LE(message.cursor, message.textLength);
    if (message.current) {
        ASSERT_LE(message.current->position, message.cursor);
    }
    const EmsObject* const next = message.current ? message.current->next : message.first;
    if (next) {
        ASSERT_GE(next->position, message.cursor);
    }
    if (message.activeFormat) {
        ASSERT_LT(message.activeFormat->position, message.cursor);
        ASSERT_GE(message.activeFormat->position + message.activeFormat->format.length, message.cursor);
    }
}

void CheckCounts(EmsMessage& message) {
    const auto segments = Write(message);
    ASSERT_EQ(segments.size(), message.segmentsUsed);
    int used = 0;
    for (const std::string& segment : segments) {
        const int header = message.hasHeader ? static_cast<uint8_t>(segment.at(0)) + 1 : 0;
        const int text = static_cast<int>(segment.size()) - header;
        used = message.dcs == 8 ? header + text : (header * 8 + 6) / 7 + text;
        ASSERT_LE(used, message.dcs == 8 ? 140 : 160);
    }
    ASSERT_EQ(message.lastSegmentLeft, message.dcs == 8 ? (140 - used) / 2 : 160 - used);
    ASSERT_EQ(segments.size() > 1, message.isConcatenated != 0);
}

}  // namespace

void CheckConsistent(EmsMessage& message) {
    ASSERT_EQ(message.text[message.textLength] | message.text[message.textLength + 1], 0);
    CheckList(message);
    CheckCursor(message);
    if (message.segmentsUsed <= emsSegments) CheckCounts(message);
}

EmsObjectData ImageData(const std::string& bytes, int width, int height, int depth, int frames) {
    EmsObjectData data = PlainData(bytes);
    data.width = static_cast<uint8_t>(width);
    data.height = static_cast<uint8_t>(height);
    data.depth = static_cast<uint8_t>(depth);
    data.frames = static_cast<uint8_t>(frames);
    return data;
}

EmsObjectData PlainData(const std::string& bytes) {
    EmsObjectData data;
    data.bytes = reinterpret_cast<const uint8_t*>(bytes.data());
    data.size = static_cast<uint16_t>(bytes.size());
    return data;
}

std::string RandomBytes(std::mt19937& random, size_t size) {
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

}  // namespace tarnbridge
