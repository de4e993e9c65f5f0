#include <gtest/gtest.h>

#include "images/PLFileType.h"

namespace tarnbridge {
namespace {

using namespace std::string_literals;

PLFileType TypeOf(const std::string& name, const std::string& content) {
    const std::vector<uint8_t> bytes(content.begin(), content.end());
    return RecognisePicture(name, bytes);
}

/// Bytes with something at a place.
std::string With(std::string bytes, size_t at, const std::string& part) {
    return bytes.replace(at, part.size(), part);
}

TEST(FileType, TheNameDecidesFirst) {
    EXPECT_EQ(TypeOf("a.ems", "BM"), PLFileType::Ems);
    EXPECT_EQ(TypeOf("a.WbMp", "\x89PNG"), PLFileType::Wbmp);
    EXPECT_EQ(TypeOf("a.ems.emf.wmf", ""), PLFileType::Wmf);
    EXPECT_EQ(TypeOf("a.ems.emf", ""), PLFileType::Emf);
    EXPECT_EQ(TypeOf("photo.emsx", ""), PLFileType::Ems) << "anywhere in the name";
    EXPECT_EQ(TypeOf("/home/me/.emstools/photo.png", "\x89PNG"), PLFileType::Png) << "not in a folder's";
    EXPECT_EQ(TypeOf("ems", "text"), PLFileType::Unknown);
}

TEST(FileType, ThenTheContent) {
    const std::string zeros(600, '\0');
    const std::string tga = With(With(std::string(17, '\0'), 2, "\2"), 16, "\x18");
    const std::string eps = With(With("\xC5\xD0\xD3\xC6" + zeros, 20, "\1"), 27, "\1");
    const struct Row {
        const char* fault;
        std::string content;
        PLFileType type;
    } rows[] = {
        {"a bitmap's first byte alone", "B", PLFileType::Unknown},
        {"TGA", tga, PLFileType::Tga},
        {"TGA cut before its depth", tga.substr(0, 16), PLFileType::Unknown},
        {"TGA of a reserved type", With(tga, 2, "\4"), PLFileType::Unknown},
        {"TIFF cut", "MM\0"s, PLFileType::Unknown},
        {"PICT", With(zeros, 522, "\0\x11\2\xFF"s), PLFileType::Pict},
        {"PICT, version 1 with anything behind", With(zeros, 522, "\0\x11\1\7"s), PLFileType::Pict},
        {"PICT of 540 bytes", With(zeros.substr(0, 540), 522, "\0\x11\2\xFF"s), PLFileType::Unknown},
        {"EPS with a preview", eps, PLFileType::EpsPreview},
        {"EPS whose preview has no size", With(eps, 27, "\0"s), PLFileType::Unknown},
        {"EPS cut", eps.substr(0, 27), PLFileType::Unknown},
        {"PBM, which has no decoder", "P4", PLFileType::Unknown},
    };
    for (const Row& row : rows)
        EXPECT_EQ(TypeOf("file", row.content), row.type) << row.fault;
}

}  // namespace
}  // namespace tarnbridge
