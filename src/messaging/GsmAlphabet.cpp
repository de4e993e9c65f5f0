#include "messaging/GsmAlphabet.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarnbridge {
namespace {

constexpr char localEuro = '\x80';
constexpr char16_t euro = u'\u20AC';

struct ExtensionPair {
    char local;
    char gsm;
};

constexpr ExtensionPair extensionPairs[] = {{'|', 0x40}, {'^', 0x14},  {'{', 0x28},
                                            {'}', 0x29}, {'[', 0x3C},  {'~', 0x3D},
                                            {']', 0x3E}, {'\\', 0x2F}, {localEuro, 0x65}};

/// Letters of the GSM alphabet that no local byte stands for.
struct GreekLetter {
    char gsm;
    char16_t character;
};

constexpr GreekLetter greekLetters[] = {
    {0x10, u'\u0394'}, {0x12, u'\u03A6'}, {0x13, u'\u0393'}, {0x14, u'\u039B'}, {0x15, u'\u03A9'},
    {0x16, u'\u03A0'}, {0x17, u'\u03A8'}, {0x18, u'\u03A3'}, {0x19, u'\u0398'}, {0x1A, u'\u039E'}};

/// A run of local bytes that go out as one GSM value, or as themselves.
struct FoldedRun {
    uint8_t first;
    uint8_t last;
    uint8_t gsm;
};

constexpr uint8_t itself = 0xFF;

constexpr FoldedRun foldedRuns[] = {
    {0x0A, 0x0A, itself}, {0x0D, 0x0D, itself}, {0x20, 0x23, itself}, {0x24, 0x24, 0x02},
    {0x25, 0x3F, itself}, {0x40, 0x40, 0x00},   {0x41, 0x5A, itself}, {0x5F, 0x5F, 0x11},
    {0x61, 0x7A, itself}, {0xA1, 0xA1, 0x40},   {0xA3, 0xA3, 0x01},   {0xA4, 0xA4, 0x24},
    {0xA5, 0xA5, 0x03},   {0xBF, 0xBF, 0x60},   {0xC0, 0xC6, 0x41},   {0xC7, 0xC7, 0x43},
    {0xC8, 0xCB, 0x45},   {0xCC, 0xCF, 0x49},   {0xD0, 0xD0, 0x44},   {0xD1, 0xD1, 0x4E},
    {0xD2, 0xD6, 0x4F},   {0xD8, 0xD8, 0x4F},   {0xD9, 0xDC, 0x55},   {0xDD, 0xDD, 0x59},
    {0xDE, 0xDE, 0x50},   {0xDF, 0xDF, 0x1E},   {0xE0, 0xE6, 0x61},   {0xE7, 0xE7, 0x63},
    {0xE8, 0xEB, 0x65},   {0xEC, 0xEF, 0x69},   {0xF1, 0xF1, 0x6E},   {0xF2, 0xF6, 0x6F},
    {0xF8, 0xF8, 0x6F},   {0xF9, 0xFC, 0x75},   {0xFD, 0xFD, 0x79},   {0xFE, 0xFE, 0x70},
    {0xFF, 0xFF, 0x79}};

using ByteMap = std::array<char, 256>;

constexpr ByteMap MakeWritingMap() {
    ByteMap map{};
    map.fill(0x5F);
    for (const FoldedRun& run : foldedRuns) {
        for (int byte = run.first; byte <= run.last; ++byte)
            map[byte] = static_cast<char>(run.gsm == itself ? byte : run.gsm);
    }
    for (const ExtensionPair& pair : extensionPairs)
        map[static_cast<uint8_t>(pair.local)] = pair.gsm;
    for (const GreekLetter& letter : greekLetters)
        map[static_cast<uint8_t>(letter.gsm)] = letter.gsm;
    map[static_cast<uint8_t>(gsmEscape)] = gsmEscape;
    return map;
}

constexpr ByteMap MakeReadingMap() {
    ByteMap map{};
    map.fill('_');
    for (int byte = 0x20; byte < 0x80; ++byte)
        map[byte] = static_cast<char>(byte);
    constexpr uint8_t low[16] = {'@',  0xA3, '$',  0xA5, 0xE8, 0xE9, 0xF9, 0xEC,
                                 0xF2, 0xC7, '\n', 0xD8, 0xF8, '\r', 0xC5, 0xE5};
    for (int byte = 0; byte < 16; ++byte)
        map[byte] = static_cast<char>(low[byte]);
    constexpr uint8_t others[][2] = {{0x1C, 0xC6}, {0x1D, 0xE6}, {0x1E, 0xDF}, {0x1F, 0xC9}, {0x24, 0xA4},
                                     {0x40, 0xA1}, {0x5B, 0xC4}, {0x5C, 0xD6}, {0x5D, 0xD1}, {0x5E, 0xDC},
                                     {0x5F, 0xA7}, {0x60, 0xBF}, {0x7B, 0xE4}, {0x7C, 0xF6}, {0x7D, 0xF1},
                                     {0x7E, 0xFC}, {0x7F, 0xE0}};
    for (const auto& [gsm, local] : others)
        map[gsm] = static_cast<char>(local);
    map[static_cast<uint8_t>(gsmEscape)] = gsmEscape;
    return map;
}

constexpr ByteMap MakePartMap() {
    ByteMap map = MakeReadingMap();
    for (const GreekLetter& letter : greekLetters)
        map[static_cast<uint8_t>(letter.gsm)] = letter.gsm;
    return map;
}

constexpr std::array<char16_t, 256> MakeCharacters() {
    std::array<char16_t, 256> characters{};
    for (int byte = 0; byte < 256; ++byte)
        characters[byte] = static_cast<char16_t>(byte);
    characters[static_cast<uint8_t>(localEuro)] = euro;
    for (const GreekLetter& letter : greekLetters)
        characters[static_cast<uint8_t>(letter.gsm)] = letter.character;
    return characters;
}

constexpr ByteMap writingMap = MakeWritingMap();
constexpr ByteMap readingMap = MakeReadingMap();
constexpr ByteMap partMap = MakePartMap();
constexpr std::array<char16_t, 256> characters = MakeCharacters();

/// \param sticky  whether an escape stays in force until an extension character comes
void ReadGsm(std::span<char> text, const ByteMap& map, bool sticky) {
    const size_t firstEscape = std::string_view(text.data(), text.size()).find(gsmEscape);
    const size_t plain = std::min(firstEscape, text.size());
    for (char& c : text.first(plain))
        c = map[static_cast<uint8_t>(c)];
    bool escaped = false;
    for (char& c : text.subspan(plain)) {
        const char code = c;
        c = map[static_cast<uint8_t>(code)];
        if (code == gsmEscape) {
            escaped = true;
        } else if (escaped) {
            const auto* const pair = std::find_if(std::begin(extensionPairs), std::end(extensionPairs),
                                                  [code](const auto& one) { return one.gsm == code; });
            const bool isPair = pair != std::end(extensionPairs);
            if (isPair) c = pair->local;
            escaped = sticky && !isPair;
        }
    }
}

}  // namespace

bool IsGsmExtension(char16_t character) {
    return std::any_of(std::begin(extensionPairs), std::end(extensionPairs), [character](const auto& pair) {
        return CharacterOfPart(static_cast<uint8_t>(pair.local)) == character;
    });
}

std::string ToGsmAlphabet(std::string_view local) {
    std::string gsm(local);
    ToGsmAlphabet(std::span<char>(gsm));
    return gsm;
}

void ToGsmAlphabet(std::span<char> text) {
    for (char& c : text)
        c = writingMap[static_cast<uint8_t>(c)];
}

std::string FromGsmAlphabet(std::string_view gsm) {
    std::string local(gsm);
    FromGsmAlphabet(std::span<char>(local));
    return local;
}

void FromGsmAlphabet(std::span<char> text) {
    ReadGsm(text, readingMap, true);
}

void FromGsmToPart(std::span<char> text) {
    ReadGsm(text, partMap, false);
}

char16_t CharacterOfPart(char16_t byte) {
    return byte < characters.size() ? characters[byte] : byte;
}

char16_t PartOfCharacter(char16_t character) {
    if (character == euro) return static_cast<uint8_t>(localEuro);
    for (const GreekLetter& letter : greekLetters) {
        if (letter.character == character) return static_cast<uint8_t>(letter.gsm);
    }
    return character;
}

std::string AsItArrives(std::string_view part) {
    std::string arrived = ToGsmAlphabet(part);
    FromGsmToPart(arrived);
    return arrived;
}

std::u16string TextOfPart(std::string_view part) {
    std::u16string text;
    text.reserve(part.size());
    for (const char byte : part) {
        if (byte != gsmEscape) text.push_back(characters[static_cast<uint8_t>(byte)]);
    }
    return text;
}

}  // namespace tarnbridge
