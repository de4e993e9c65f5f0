#include "images/PLFileType.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarnbridge {
namespace {

using namespace std::string_view_literals;

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> all) {
    return std::find(all.begin(), all.end(), text) != all.end();
}

std::optional<PLFileType> TypeOfName(const std::filesystem::path& name) {
    std::u8string upper = name.filename().u8string();
    for (char8_t& unit : upper) {
        if (unit >= u8'a' && unit <= u8'z') unit = static_cast<char8_t>(unit - u8'a' + u8'A');
    }
    constexpr std::pair<std::u8string_view, PLFileType> names[] = {
        {u8".WMF", PLFileType::Wmf},
        {u8".EMF", PLFileType::Emf},
        {u8".WBMP", PLFileType::Wbmp},
        {u8".EMS", PLFileType::Ems},
    };
    for (const auto& [part, type] : names) {
        if (upper.find(part) != std::u8string::npos) return type;
    }
    return std::nullopt;
}

bool IsTga(std::string_view content) {
    if (content.size() < 17) return false;
    const auto byte = [content](size_t at) { return static_cast<uint8_t>(content[at]); };
    return byte(1) < 2 && byte(2) < 12 && (byte(2) < 4 || byte(2) > 8) &&
           IsOneOf(content.substr(7, 1), {"\0"sv, "\x08", "\x0F", "\x10", "\x18", "\x20"}) &&
           IsOneOf(content.substr(16, 1), {"\x08", "\x0F", "\x10", "\x18", "\x20"});
}

bool IsPict(std::string_view content) {
    if (content.size() <= 540) return false;
    const std::string_view version = content.substr(522, 4);
    return version == "\x00\x11\x02\xFF"sv || version.starts_with("\x00\x11\x01"sv) ||
           version == "\x11\x01\x01\x00"sv;
}

bool IsEpsPreview(std::string_view content) {
    constexpr std::string_view none("\0\0\0\0", 4);
    return content.size() >= 28 && IsOneOf(content.substr(0, 4), {"\xC5\xD0\xD3\xC6", "\xC6\xD3\xD0\xC5"}) &&
           content.substr(20, 4) != none && content.substr(24, 4) != none;
}

}  // namespace

PLFileType RecognisePicture(const std::filesystem::path& name, std::span<const uint8_t> content) {
    if (const auto type = TypeOfName(name)) return *type;
    const std::string_view bytes(reinterpret_cast<const char*>(content.data()), content.size());
    if (IsOneOf(bytes.substr(0, 2), {"BA", "BM", "IC", "CI", "CP"})) return PLFileType::Bmp;
    if (IsTga(bytes)) return PLFileType::Tga;
    if (bytes.starts_with("GIF8")) return PLFileType::Gif;
    if (IsOneOf(bytes.substr(0, 4), {"II*\0"sv, "MM\0*"sv})) return PLFileType::Tiff;
    if (IsPict(bytes)) return PLFileType::Pict;
    if (bytes.starts_with("\xFF\xD8\xFF")) return PLFileType::Jpeg;
    if (bytes.starts_with("\x89PNG")) return PLFileType::Png;
    if (IsEpsPreview(bytes)) return PLFileType::EpsPreview;
    if (bytes.starts_with('\x0A') && bytes.size() > 2 && bytes[2] == 1) return PLFileType::Pcx;
    if (IsOneOf(bytes.substr(0, 2), {"P2", "P5"})) return PLFileType::Pgm;
    if (IsOneOf(bytes.substr(0, 2), {"P3", "P6"})) return PLFileType::Ppm;
    if (bytes.starts_with("8BPS")) return PLFileType::Psd;
    return PLFileType::Unknown;
}

}  // namespace tarnbridge
