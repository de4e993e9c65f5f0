#include "core/app/ProfileRecords.h"

namespace tarnbridge {
namespace {

/// Signed numbers pass as the unsigned ones of the same bits, so that whatever was read is written again.
void WriteInt(ProfileWriter& out, int number) {
    out.U32(static_cast<uint32_t>(number));
}

int ReadInt(ProfileReader& in) {
    return static_cast<int>(in.U32());
}

void Write(ProfileWriter& out, const SmsAddress& address) {
    WriteInt(out, address.type);
    WriteInt(out, address.plan);
    out.Bytes(address.number);
}

void Read(ProfileReader& in, SmsAddress& address) {
    address.type = ReadInt(in);
    address.plan = ReadInt(in);
    address.number = in.Bytes();
}

void Write(ProfileWriter& out, const SmsTimestamp& time) {
    out.U16(time.zoneMinutes);
    out.U16(time.year);
    for (const uint8_t field : {time.month, time.day, time.hour, time.minute, time.second, time.zonePositive})
        out.U8(field);
}

void Read(ProfileReader& in, SmsTimestamp& time) {
    time.zoneMinutes = in.U16();
    time.year = in.U16();
    for (uint8_t* const field :
         {&time.month, &time.day, &time.hour, &time.minute, &time.second, &time.zonePositive})
        *field = in.U8();
}

}  // namespace

void WriteRecord(ProfileWriter& out, SmsRecord& record) {
    if (record.emsMessage.HasHeader()) record.hasHeader = 1;
    const bool borrowed = record.rawParts.empty() && record.PrepareParts();
    out.Bytes(record.text8);
    out.Wide(record.text16);
    out.Bytes(record.userDataHeader);
    out.Wide(record.storage);
    WriteInt(out, record.status);
    Write(out, record.serviceCentre);
    Write(out, record.address);
    Write(out, record.timestamp);
    Write(out, record.validityTime);
    WriteInt(out, record.messageType);
    for (const uint8_t field : {record.rejectDuplicates, record.replyPath, record.statusReport,
                                record.messageReference, record.protocolId})
        out.U8(field);
    WriteInt(out, record.validityFormat);
    WriteInt(out, record.dcs);
    out.U16(record.validityRelative);
    out.U8(record.moreMessages);
    out.U8(record.hasHeader);
    out.Count(record.rawParts.size());
    for (const std::string& part : record.rawParts) {
        out.Count(part.size());
        out.Raw(part);
    }
    if (borrowed) record.rawParts.clear();
}

void ReadRecord(ProfileReader& in, SmsRecord& record) {
    record.text8 = in.Bytes();
    record.text16 = in.Wide();
    record.userDataHeader = in.Bytes();
    record.storage = in.Wide();
    record.status = ReadInt(in);
    Read(in, record.serviceCentre);
    Read(in, record.address);
    Read(in, record.timestamp);
    Read(in, record.validityTime);
    record.messageType = ReadInt(in);
    for (uint8_t* const field : {&record.rejectDuplicates, &record.replyPath, &record.statusReport,
                                 &record.messageReference, &record.protocolId})
        *field = in.U8();
    record.validityFormat = ReadInt(in);
    record.dcs = ReadInt(in);
    record.validityRelative = in.U16();
    record.moreMessages = in.U8();
    record.hasHeader = in.U8();
    const uint32_t parts = in.U32();
    for (uint32_t i = 0; i < parts && in.HasMore(); ++i)
        record.rawParts.emplace_back(in.Raw(in.U32()));
}

namespace {

constexpr std::u16string ContactDetails::*textsBeforeBirthday[] = {
    &ContactDetails::home,   &ContactDetails::email,  &ContactDetails::office, &ContactDetails::fax,
    &ContactDetails::extra1, &ContactDetails::extra2, &ContactDetails::extra3, &ContactDetails::extra4,
};

}  // namespace

void WriteRecord(ProfileWriter& out, const Contact& contact) {
    Write(out, contact.number);
    out.Wide(contact.name);
    WriteInt(out, contact.index);
    out.Wide(contact.storage);
    for (const auto text : textsBeforeBirthday)
        out.Wide(contact.details.*text);
    out.U16(contact.details.birthday.year);
    out.U8(contact.details.birthday.month);
    out.U8(contact.details.birthday.day);
    out.Wide(contact.details.memo);
    out.U8(contact.nameEncoding);
}

void ReadRecord(ProfileReader& in, Contact& contact) {
    Read(in, contact.number);
    contact.name = in.Wide();
    contact.index = ReadInt(in);
    contact.storage = in.Wide();
    for (const auto text : textsBeforeBirthday)
        contact.details.*text = in.Wide();
    contact.details.birthday.year = in.U16();
    contact.details.birthday.month = in.U8();
    contact.details.birthday.day = in.U8();
    contact.details.memo = in.Wide();
    contact.nameEncoding = in.U8();
}

}  // namespace tarnbridge
