#include "core/app/SampleProfile.h"

#include "core/app/ProfileFormat.h"

namespace tarnbridge::test {
namespace {

using namespace std::string_literals;

SmsTimestamp Time(uint16_t first) {
    const auto next = [value = static_cast<uint8_t>(first & 0xFF)](int step) {
        return static_cast<uint8_t>(value + step);
    };
    return {first, static_cast<uint16_t>(first + 1), next(2), next(3), next(4), next(5), next(6), next(7)};
}

std::unique_ptr<SmsRecord> SampleMessage() {
    auto message = std::make_unique<SmsRecord>();
    message->handsetIndices = {7};
    message->text8 = "a\0b"s;
    message->text16 = u"\u20AC";
    message->userDataHeader = "\5\0\3\1\2\1"s;
    message->storage = u"PC";
    message->status = smsComposed;
    message->serviceCentre.type = SmsAddress::international;
    message->serviceCentre.plan = 2;
    message->serviceCentre.number = "+1";
    message->address.type = SmsAddress::alphanumeric;
    message->address.plan = -1;
    message->address.number = "Me";
    message->timestamp = Time(0x0102);
    message->validityTime = Time(0x0331);
    message->messageType = SmsRecord::submit;
    message->rejectDuplicates = 0x41;
    message->replyPath = 0x42;
    message->statusReport = 0x43;
    message->messageReference = 0x44;
    message->protocolId = 0x45;
    message->validityFormat = SmsRecord::absoluteValidity;
    message->dcs = 8;
    message->validityRelative = 0xA7;
    message->moreMessages = 0x46;
    message->hasHeader = 1;
    message->rawParts = {"\0p"s, "", "q"};
    message->partDcs.fill(9);
    return message;
}

std::unique_ptr<Contact> SampleContact() {
    auto contact = std::make_unique<Contact>();
    contact->number.type = SmsAddress::international;
    contact->number.plan = 3;
    contact->number.number = "+886";
    contact->name = u"Ann";
    contact->index = 0x12345678;
    contact->details = {u"h", u"company", u"e", u"o",         u"f",           u"1",
                        u"2", u"3",       u"4", {2001, 2, 3}, {1980, 12, 31}, u"memo"};
    contact->nameEncoding = packedUcs2Name;
    contact->detailsLoaded = true;
    return contact;
}

/// The attributes of a user folder below a folder of the PC, with odd flags.
const FolderAttributes sampleAttributes = {9, 1, 8, 8, 1, 1, 5, 6, 7};

}  // namespace

std::string Number16(unsigned number) {
    return {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8 & 0xFF)};
}

std::string Number32(uint32_t number) {
    return Number16(number & 0xFFFF) + Number16(number >> 16);
}

std::string WideField(std::string_view ascii) {
    std::string field = Number32(static_cast<uint32_t>(ascii.size() + 1));
    for (const char letter : ascii)
        field += {letter, '\0'};
    return field + "\0\0"s;
}

std::string BytesField(std::string_view text) {
    return Number32(static_cast<uint32_t>(text.size() + 1)).append(text) + '\0';
}

std::string FolderHead(std::string_view name, const std::string& attributes) {
    return "MFOL\1\0\0\0\0\0\0\0"s + WideField(name) + attributes;
}

std::string Saved(Profile& profile) {
    std::string stream;
    SaveProfile(profile, [&stream](std::string_view piece) {
        stream += piece;
        return true;
    });
    return stream;
}

void FillSample(Profile& profile) {
    profile.messageRoot.name = u"M";
    profile.messageRoot.Append(std::make_unique<MessageFolder>());
    MessageFolder& pc = profile.messageRoot.Append(std::make_unique<MessageFolder>());
    pc.name = u"P";
    MessageFolder& user = pc.Append(std::make_unique<MessageFolder>());
    user.attributes = sampleAttributes;
    user.Append(SampleMessage());
    profile.contactRoot.Append(std::make_unique<ContactFolder>());
    profile.contactRoot.Append(std::make_unique<ContactFolder>()).Append(SampleContact());
    profile.outlookOn = true;
    profile.lotusNotesPath = u"C:\\n";
    profile.connections = {{u"GPRS_x", u"x", u"net"}};
}

std::string SampleBytes() {
    const std::string none(4, '\0');
    const std::string empty = FolderHead("") + none + none;
    const std::string message =
        "\4\0\0\0a\0b\0"s                            // text8
        "\2\0\0\0\xAC\x20\0\0"s                      // text16
        "\7\0\0\0\5\0\3\1\2\1\0"s                    // userDataHeader
        "\3\0\0\0P\0C\0\0\0"s                        // storage
        "\7\0\0\0"s                                  // status
        "\1\0\0\0\2\0\0\0\3\0\0\0+1\0"s              // serviceCentre
        "\5\0\0\0\xFF\xFF\xFF\xFF\3\0\0\0Me\0"s      // address
        "\x02\x01\x03\x01\x04\x05\x06\x07\x08\x09"s  // timestamp
        "\x31\x03\x32\x03\x33\x34\x35\x36\x37\x38"s  // validityTime
        "\1\0\0\0ABCDE\3\0\0\0\x8\0\0\0"s            // messageType to dcs
        "\xA7\0F\1"s                                 // validityRelative to hasHeader
        "\3\0\0\0"
        "\2\0\0\0\0p"
        "\0\0\0\0"
        "\1\0\0\0q"s;  // raw parts
    const std::string contact =
        "\1\0\0\0\3\0\0\0\5\0\0\0+886\0"s  // number
        "\4\0\0\0A\0n\0n\0\0\0"s           // name
        "\x78\x56\x34\x12"s                // index
        "\3\0\0\0P\0C\0\0\0"s +            // storage
        WideField("h") +
        WideField("e") + WideField("o") + WideField("f") + WideField("1") + WideField("2") + WideField("3") +
        WideField("4") + "\xBC\x07\x0C\x1F"s + WideField("memo") + "\2"s;  // birthday, memo, nameEncoding
    const std::string attributes = "\x9\0\0\0\1\0\0\0\x8\0\0\0\x8\0\0\0\1\1\5\6\7"s;
    return "TARNBRIDGE PROFILE\2\0\0\0\0\0\0\0"s + FolderHead("M") + none + Number32(2) + empty +
           FolderHead("P") + none + Number32(1) + FolderHead("", attributes) + Number32(1) + message + none +
           FolderHead("") + none + Number32(2) + empty + FolderHead("") + Number32(1) + contact + none +
           none + Number32(1) + none + WideField("C:\\n") + Number32(1) + WideField("GPRS_x") +
           WideField("x") + WideField("net");
}

}  // namespace tarnbridge::test
