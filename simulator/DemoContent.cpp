#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/GsmAlphabet.h"
#include "simulator/HandsetContent.h"
#include "simulator/Pdu.h"

namespace tarnbridge::simulator {
namespace {

constexpr int unread = 0;
constexpr int read = 1;
constexpr int draft = 2;
constexpr int sent = 3;
constexpr int outbox = 5;

constexpr const char* mira = "+15550100211";
constexpr const char* jonas = "+15550100212";
constexpr const char* aurelie = "+15550100213";
constexpr const char* tomas = "+15550100214";
constexpr const char* nadia = "+15550100215";
constexpr const char* dentist = "5550142";
constexpr const char* shop = "NORTHSHOP";

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

// Information elements of EMS, 3GPP TS 23.040 9.2.3.24.10.

std::string Element(int identifier, const std::string& data) {
    return Bytes({identifier, static_cast<int>(data.size())}) + data;
}

constexpr int bold = 0x10;
constexpr int italic = 0x20;
constexpr int underlined = 0x40;

std::string Formatted(int start, int length, int mode) {
    return Element(0x0a, Bytes({start, length, mode}));
}

std::string PredefinedSound(int position, int number) {
    return Element(0x0b, Bytes({position, number}));
}

std::string PredefinedAnimation(int position, int number) {
    return Element(0x0d, Bytes({position, number}));
}

std::string Melody(int position, const std::string& notes) {
    return Element(0x0c, Bytes({position}) + "BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nMELODY:" +
                             notes + "\r\nEND:IMELODY\r\n");
}

/// Rows of `#` and `.` as bits, eight a byte, the first one high.
std::string Bitmap(std::initializer_list<std::string_view> rows) {
    std::string bits;
    for (const std::string_view row : rows) {
        for (size_t i = 0; i < row.size(); i += 8) {
            int byte = 0;
            for (size_t bit = 0; bit < 8 && i + bit < row.size(); ++bit) {
                if (row[i + bit] == '#') byte |= 0x80 >> bit;
            }
            bits += static_cast<char>(byte);
        }
    }
    return bits;
}

std::string House() {
    return Bitmap({"................", ".......##.......", "......####......", ".....##..##.....",
                   "....##....##....", "...##......##...", "..##........##..", ".##############.",
                   "..#..........#..", "..#.###..###.#..", "..#.#.#..#.#.#..", "..#.###..#.#.#..",
                   "..#......#.#.#..", "..############..", "................", "................"});
}

/// 32 by 32 points: the house, twice as large.
std::string LargeHouse() {
    const std::string small = House();
    std::string large;
    for (size_t row = 0; row < 16; ++row) {
        std::string doubled;
        for (size_t column = 0; column < 16; column += 4) {
            const int bits = static_cast<unsigned char>(small[row * 2 + column / 8]);
            int byte = 0;
            for (size_t bit = 0; bit < 4; ++bit) {
                if ((bits & 0x80 >> (column % 8 + bit)) != 0) byte |= 0xc0 >> (2 * bit);
            }
            doubled += static_cast<char>(byte);
        }
        large += doubled + doubled;
    }
    return large;
}

/// Four pictures of 8 by 8 points: a ball that falls.
std::string Ball() {
    return Bitmap({"..####..", ".######.", ".######.", "..####..", "........", "........", "........",
                   "........", "........", "..####..", ".######.", ".######.", "..####..", "........",
                   "........", "........", "........", "........", "........", "..####..", ".######.",
                   ".######.", "..####..", "........", "........", "........", "........", "........",
                   "..####..", "########", "########", "..####.."});
}

/// A long message in parts, no escape cut from its character.
struct LongText {
    std::vector<std::u16string> parts;
    bool ucs2;  ///< for all parts, also one that GSM text would hold
};

/// 153 septets or 67 units a part; one less where the reference has 16 bits.
LongText Parts(std::u16string_view text, bool wideReference = false) {
    LongText result{std::vector<std::u16string>(1), !TextToSeptets(text)};
    const size_t most = (result.ucs2 ? 67 : 153) - (wideReference ? 1 : 0);
    size_t length = 0;
    for (const char16_t unit : text) {
        const size_t size = result.ucs2 ? 1 : TextToSeptets({&unit, 1})->size();
        if (length + size > most) {
            result.parts.emplace_back();
            length = 0;
        }
        result.parts.back() += unit;
        length += size;
    }
    return result;
}

/// Concatenation with an 8-bit reference.
std::string PartElement(int reference, size_t total, size_t number) {
    return Element(0x00, Bytes({reference, static_cast<int>(total), static_cast<int>(number)}));
}

/// Concatenation with a 16-bit reference.
std::string WidePartElement(int reference, size_t total, size_t number) {
    return Element(
        0x08, Bytes({reference >> 8, reference & 0xff, static_cast<int>(total), static_cast<int>(number)}));
}

/// Writes messages into a memory one after the other, an hour and some minutes apart.
class Author {
public:
    Author(HandsetContent& content, std::string memory) : content_(content), memory_(std::move(memory)) {}

    void Skip(int locations) { location_ += locations; }

    void Receive(int stat, const std::string& from, std::u16string_view text,
                 const std::string& elements = {}, int messageClass = -1) {
        Put(stat, WriteDeliver(Message(from, text, elements, messageClass), content_.identity.serviceCentre));
    }

    void Write(int stat, const std::string& to, std::u16string_view text, const std::string& elements = {}) {
        Put(stat, WriteSubmit(Message(to, text, elements, -1)));
    }

    /// One part, numbered from 1, of a message whose concatenation element is `element`.
    void ReceivePart(int stat, const std::string& from, const LongText& text, size_t number,
                     const std::string& element) {
        MessageText message = Message(from, text.parts.at(number - 1), element, -1);
        message.ucs2 = text.ucs2;
        Put(stat, WriteDeliver(message, content_.identity.serviceCentre));
    }

    void Put(int stat, const std::string& pdu) {
        content_.Messages(memory_)->items[++location_] = {stat, pdu, nlohmann::json::object()};
    }

    MessageText Message(const std::string& number, std::u16string_view text, const std::string& elements,
                        int messageClass) {
        MessageText message;
        message.number = number;
        message.text = text;
        message.elements = elements;
        message.time = Later();
        message.reference = ++reference_;
        message.messageClass = messageClass;
        return message;
    }

private:
    LocalTime Later() {
        minutes_ += 83;
        LocalTime time{
            2007, 3, 1 + minutes_ / 1440 % 28, minutes_ / 60 % 24, minutes_ % 60, minutes_ * 7 % 60, 60};
        return time;
    }

    HandsetContent& content_;
    const std::string memory_;
    int location_ = 0;
    int minutes_ = 0;
    int reference_ = 0;
};

constexpr std::u16string_view trainStory =
    u"Hi! The 7:40 was cancelled, so we took the slow train along the coast instead. Nobody minded: the sea "
    u"was "
    u"flat as a plate, and at every stop somebody got on with a basket of something. We shared cherries with "
    u"a "
    u"violinist (!) and two school classes, and he played until the guard asked him, very politely, to stop. "
    u"Arrived at 13:15, the flat is lovely, keys were under the {blue} pot as you said. Dinner is at 8, "
    u"bring "
    u"nothing but yourselves.";

constexpr std::u16string_view russianStory =
    u"Привет! Мы доехали хорошо, хотя дорога заняла почти шесть часов. Бабушка уже ждёт вас к обеду в "
    u"субботу, "
    u"будут пироги с капустой и яблоками. Не забудьте взять тёплые куртки: вечером у реки прохладно.";

constexpr std::u16string_view germanStory =
    u"Guten Morgen! Für die Feier brauchen wir noch: 2 Gläser Honig, Äpfel (süß), Öl, 12 Brötchen und "
    u"jemanden, der "
    u"die Lichterkette über der Tür aufhängt. Kosten bisher 48,50 €, Liste folgt per Post. Grüße, Jonas";

constexpr std::u16string_view frenchStory =
    u"Coucou ! J'ai retrouvé la recette de Mémé : 250 g de farine, 4 œufs, un demi-litre de lait, une pincée "
    u"de sel "
    u"et « ce qu'il faut » de beurre. Laisse reposer une heure, c'est là tout le secret.";

constexpr std::u16string_view sentStory =
    u"Minutes of Tuesday: 1) the roof is tight again; 2) the bill [no. 2007/31] comes to 310.00 and is paid; "
    u"3) next "
    u"meeting on the 27th at Nadia's, please bring your own chair; 4) whoever took the ladder: it's missed.";

void FillPhone(HandsetContent& content) {
    Author author(content, "ME");
    const auto train = Parts(trainStory);
    const auto russian = Parts(russianStory);
    const auto german = Parts(germanStory);
    const auto trainPart = [&](size_t number) {
        author.ReceivePart(read, mira, train, number, PartElement(0x4d, train.parts.size(), number));
    };

    author.Receive(read, mira, u"Are we still on for tonight?");
    author.Write(sent, mira, u"Yes! 7 at the bridge.");
    trainPart(3);
    author.Receive(read, dentist, u"Your appointment: Thu 15 Mar 10:30. Reply C to cancel.");
    trainPart(1);
    author.Receive(read, nadia, u"Привет, как дела?");
    trainPart(2);
    author.Receive(read, aurelie, u"Ça marche, à bientôt à Nîmes !");
    author.Skip(2);
    author.Receive(read, jonas,
                   u"Größe 42, Straße 8, Preis ca. 20 € {brutto} [inkl. MwSt.] ~ ok? ^^ a|b c\\d");
    author.Receive(unread, tomas, u"Přijedu v úterý večer, vlak má zpoždění. Žádný spěch.");
    author.Receive(read, "+15550100216", u"Καλημέρα! Θα τα πούμε στις 5.");
    author.Receive(read, "+15550100217", u"สวัสดีครับ พรุ่งนี้เจอกันที่สถานี");
    author.Receive(unread, "+15550100218", u"你好，明天下午三点在图书馆见面吧。");
    author.Receive(read, "+15550100219", u"مرحبا، أراك غدا في المكتبة");
    author.Receive(read, "+15550100220", u"明日の会議は10時に変わりました。よろしく！");
    author.Receive(read, "+15550100221", u"¿Qué tal? ¡Nos vemos mañana en el café, señor Ibáñez!");
    author.Receive(read, "+15550100222", u"Dzień dobry, paczka czeka w skrytce 14.");
    author.Receive(unread, shop, u"Your parcel 4711 is ready for collection until 24.03. No reply possible.");
    author.Receive(read, shop, u"Code: 093 481. Don't pass it on.", {}, 0);
    author.Skip(1);

    // Part 2 of the Russian one never came; the German one was interrupted while it was read.
    author.ReceivePart(read, nadia, russian, 1, PartElement(0x21, russian.parts.size(), 1));
    author.ReceivePart(read, nadia, russian, 3, PartElement(0x21, russian.parts.size(), 3));
    author.ReceivePart(read, jonas, german, 1, PartElement(0x9a, german.parts.size(), 1));
    author.ReceivePart(unread, jonas, german, 2, PartElement(0x9a, german.parts.size(), 2));

    author.Receive(read, tomas, u"Look, this is our new house!", Element(0x11, Bytes({28}) + House()));
    author.Receive(read, tomas, u"Larger", Element(0x10, Bytes({6}) + LargeHouse()));
    author.Receive(read, mira, u"Goal!!! :)", PredefinedAnimation(7, 1) + PredefinedSound(0, 4));
    author.Receive(read, mira, u"Catch it ", Element(0x0f, Bytes({9}) + Ball()));
    author.Receive(unread, aurelie, u"Ecoute :", Melody(8, "&b=120*4c2d2e2c2c2d2e2c2e2f2g1"));
    author.Receive(read, jonas, u"This is bold, this italic, this underlined.",
                   Formatted(8, 4, bold) + Formatted(19, 6, italic) + Formatted(32, 10, underlined));
    author.Receive(read, jonas, u"A wide one:", Element(0x12, Bytes({11, 2, 16}) + House()));
    author.Receive(read, nadia, u"Жирный и картинка ",
                   Formatted(0, 6, bold) + Element(0x11, Bytes({18}) + House()));

    author.Skip(3);
    author.Write(sent, nadia, u"Спасибо, всё отлично!");
    const auto minutes = Parts(sentStory);
    for (size_t i = 0; i < minutes.parts.size(); ++i) {
        author.Write(sent, jonas, minutes.parts[i], PartElement(0x07, minutes.parts.size(), i + 1));
    }
    author.Write(draft, aurelie, u"Chère Aurélie, ");
    author.Write(draft, "", u"Shopping: milk, bread, 2 kg of apples");
    author.Write(draft, mira, u"Happy birthday!", Formatted(0, 15, bold) + PredefinedSound(15, 9));
    author.Write(outbox, dentist, u"C");
    author.Write(outbox, tomas, u"Tak v úterý, přijdu tě vyzvednout.");
}

void FillSim(HandsetContent& content) {
    Author author(content, "SM");
    author.Receive(read, "+15550109000", u"Welcome to Testnet! Your number is +1 555 0100 200.");
    author.Receive(read, jonas, u"Schlüssel liegt beim Nachbarn. Tür klemmt!");
    author.Receive(unread, mira, u"Call me when you're up @ home, it's about the £50");
    author.Skip(1);
    const auto french = Parts(frenchStory, true);
    for (size_t i = french.parts.size(); i > 0; --i) {
        author.ReceivePart(read, aurelie, french, i, WidePartElement(0x3e07, french.parts.size(), i));
    }
    author.Receive(read, "*100#", u"Credit: 12.40 until 30.06.");
    author.Receive(read, tomas, u"Ok");
    author.Write(sent, tomas, u"Ok?");
    author.Write(sent, "+15550100222", u"Dziękuję, odbiorę jutro. Zażółć gęślą jaźń.");
    author.Write(draft, jonas, u"Grüße aus dem Süden, ");
    author.Write(outbox, mira, u"On my way");
    author.Receive(read, "+15550109001", u"");
}

void FillContacts(HandsetContent& content) {
    const auto add = [](ContactStorage& storage, int slot, std::u16string_view name, const char* number) {
        storage.items[slot] = {std::u16string(name), number, nlohmann::json::object()};
    };
    ContactStorage& sim = content.simContacts;
    add(sim, 1, u"Mailbox", "5550199");
    add(sim, 2, u"Mira", mira);
    add(sim, 3, u"Jonas Grün", jonas);
    add(sim, 5, u"Надя", nadia);
    add(sim, 6, u"Taxi", "5550123");
    add(sim, 9, u"图书馆", "+15550100218");
    add(sim, 10, u"A [b] {c}", "*100#");
    add(sim, 100, u"Last one", "112");

    ContactStorage& phone = content.phoneContacts;
    add(phone, 1, u"Aurélie Fontaine", aurelie);
    add(phone, 2, u"Mira Castell", mira);
    add(phone, 3, u"Tomáš Řezníček", tomas);
    add(phone, 4, u"Надежда Орлова", nadia);
    add(phone, 7, u"Ελένη", "+15550100216");
    add(phone, 8, u"สมชาย", "+15550100217");
    add(phone, 9, u"林小雨同学", "+15550100218");
    add(phone, 12, u"ليلى", "+15550100219");
    add(phone, 13, u"Dr. Weißmann (Zahnarzt)", dentist);
    add(phone, 14, u"佐藤さん", "+15550100220");
    add(phone, 15, u"Señor Ibáñez", "+15550100221");
    add(phone, 20, u"Conference p123", "5550177p123#");
    add(phone, 21, u"", "5550111");
    add(phone, 33, u"No number yet", "");
}

}  // namespace

HandsetContent HandsetContent::Demo() {
    HandsetContent content = Empty();
    FillSim(content);
    FillPhone(content);
    FillContacts(content);
    return content;
}

}  // namespace tarnbridge::simulator
