#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/HandsetRecord.h"
#include "messaging/EmsHandle.h"
#include "messaging/SmsAddress.h"
#include "messaging/SmsTimestamp.h"
#include "platform/Clock.h"
#include "platform/CodePage.h"

namespace tarnbridge {

class HandsetLink;

/// The status of a message. 4 and 5 are private kinds of the handset.
enum SmsStatus : int {
    smsUnread = 0,
    smsRead = 1,
    smsDraft = 2,
    smsSent = 3,
    smsSentFromHere = 6,
    smsComposed = 7,
    smsOutbox = 8,
};

/// The status that the number `stat` of a read message stands for.
int StatusOfStat(int stat);

/// TP-DCS (3GPP TS 23.038, clause 4) as the coding alone: 0 GSM alphabet, 4 8-bit data, 8 UCS2.
int CodingOf(uint8_t dcsOctet);

/// Whether the text of this coding is packed in septets: 0, and 16, which differs from it in TP-DCS alone.
inline bool IsSeptetCoding(int dcs) {
    return dcs == 0 || dcs == 16;
}

/// One message as the program holds it; a message of several parts is one record. Fields hold what was
/// received, checked by nobody. No locks: a record belongs to one thread at a time.
class SmsRecord : public HandsetRecord {
public:
    static constexpr int deliver = 0;
    static constexpr int submit = 1;
    static constexpr int relativeValidity = 2;
    static constexpr int absoluteValidity = 3;

    /// Fills hexText with an SMS-SUBMIT TPDU and an empty TP-SCA in front, in upper-case hexadecimal, and
    /// sets what it wrote in the record: type, service centre, statusReport and replyPath 0. messageReference
    /// becomes the process's counter before it was moved on; the PDU holds the number after that. What
    /// doesn't fit in 512 octets is left out.
    void encodeSubmit(std::string& hexText, const CodePage& page = CodePage::System());

    /// The same with an SMS-DELIVER TPDU, service centre and time as they stand. Without a header, replyPath
    /// becomes 0.
    void encodeDeliver(std::string& hexText, const CodePage& page = CodePage::System());

    /// Fills the record from an SMS-DELIVER or SMS-SUBMIT TPDU with its TP-SCA in front. False on a character
    /// other than 0-9 and A-F, with nothing changed, and on another type of message, with messageType
    /// changed. What a PDU that ends early lacks reads as zero bits, and `truncated` says so. A SUBMIT takes
    /// both of its times from the clock, unless it holds one. The EmsMessage isn't touched.
    bool decode(std::string_view hexText, Clock& clock, bool& truncated);
    bool decode(std::string_view hexText);

    /// Octets of the encoded TP-SCA: what the length in +CMGS and +CMGW doesn't count.
    int serviceCentreLength() const;

    /// The text in either form, out of the one that is in use.
    std::string TextAsBytes(const CodePage& page = CodePage::System()) const;
    std::u16string TextAsWide(const CodePage& page = CodePage::System()) const;

    /// The key under which the parts of one message are found: the octets reference, kind, total and
    /// sequence, the first one lowest. Kind is 1 for a message that was read, else 2, or with a wide
    /// reference its low octet. Nothing if the header has no concatenation element that counts.
    std::optional<uint32_t> ConcatKey() const;

    /// Appends the first location with its PDU, the first raw part and the text of a later part. False, with
    /// nothing done, if it has no location.
    bool MergeFrom(const SmsRecord& other, const CodePage& page = CodePage::System());

    /// Appends the locations, with their PDUs, of an exact double of one of the parts.
    void AddDouble(const SmsRecord& other);

    /// The parts that are there, each counted once; one at least.
    size_t PartCount() const;

    /// Whether the header tells of more parts than there are.
    bool LacksParts() const;

    /// Replaces rawParts by the segments of the EmsMessage, in the form described there. False, with nothing
    /// changed, if there is none or it needs more than 10 segments. A concatenated message takes a new
    /// reference number.
    bool PrepareParts();

    /// Makes a new EmsMessage of the record's coding out of rawParts, which stay, and takes the text from it.
    /// False if a part could not be read whole, where the EmsMessage holds what could, or, where there is
    /// none, if every slot is taken or there are more or longer parts than a message of 10 segments has.
    bool RebuildFromParts();

    /// Takes over a message, which must be there, in place of the present content: coding, header and text
    /// become its own, and rawParts empty.
    void SetEmsMessage(EmsHandle message);

    /// Makes the EmsMessage if there is none, out of rawParts or else out of the text. Whether there is one
    /// now.
    bool EnsureEmsMessage(const CodePage& page = CodePage::System());

    /// Turns the EmsMessage into rawParts and gives it up: a record that lies in a list takes none of the few
    /// that there are. One that can't be laid out goes too if there are rawParts that it was made from, and
    /// otherwise stays, with the answer false.
    bool SettleParts();

    // The operations on the handset. Each blocks for its exchanges, one at a time under the link's lock. They
    // return false, or -1, on failure; `error` is then the number of `+CMS ERROR` if there was one, otherwise
    // -1, and `leftBehind` names the locations that may still hold parts which should be gone.

    /// What the last Read found.
    enum class Reading {
        Found,    ///< a message, or something unreadable
        Empty,    ///< nothing stands there
        Refused,  ///< the handset didn't give it
        NoAnswer  ///< the handset said nothing
    };

    /// Fills the record from a location; an empty one is a failure too, as `reading` tells. A PDU that can't
    /// be decoded, or is shorter than the handset says, makes the record unreadable. A message that was
    /// written here has no time of its own and gets none.
    bool Read(HandsetLink& link, std::u16string_view from, int index, int& error) override;

    /// Stores the message and takes its locations and its storage from the handset. Without an EmsMessage it
    /// goes where the handset puts it, whatever `to` says; with one, to `to` if that has room, and otherwise
    /// where the handset puts it. Only read and unread messages on a handset that can store them keep their
    /// form as received. A status without a write command fails, as more than 10 parts do. What was written
    /// of a message that can't be written whole is deleted again. The EmsMessage, if there is one, takes
    /// the place of rawParts, which are empty afterwards.
    bool Write(HandsetLink& link, std::u16string_view to, int& error) override;

    /// Delete on the record's own storage.
    bool Remove(HandsetLink& link, int& error) override;

    /// Sends the message to its address, part by part; parts that were sent before one failed stay sent.
    /// rawParts are as after Write.
    virtual bool Send(HandsetLink& link, int& error);

    /// Frees all locations of the record; true if it has none. Where its PDUs are known each location is read
    /// first, and nothing is deleted if one of them holds anything else: `replaced` tells. handsetIndices are
    /// then those that weren't freed.
    bool Delete(HandsetLink& link, std::u16string_view from, int& error);

    /// Deletes `old`, which is this record as it stands on the handset, then writes this one to the same
    /// storage. Between the two the message exists in memory alone: the caller keeps a copy on the disk until
    /// it is done. The locations that are left of the old one are then `old`'s.
    bool Update(HandsetLink& link, SmsRecord& old, int& error);

    /// One PDU, as an SMS-SUBMIT, into the network (`+CMGS`).
    bool SendPdu(HandsetLink& link, int& error);

    /// One PDU, by messageType and status, into the selected memory (`+CMGW`); gives its location.
    int WritePdu(HandsetLink& link, int& error);

    std::vector<int> handsetIndices;  ///< places on the handset, in part order, exact doubles of a part last
    /// The PDU of each of these places in hexadecimal, as it was read or written; empty where it isn't known.
    std::vector<std::string> handsetPdus;
    /// Set for a place of the handset whose content can't be decoded: the text that was found there. Such a
    /// record is no message: it is shown with that text, and is never joined, copied, moved or sent.
    std::optional<std::string> unreadable;
    std::vector<int> leftBehind;  ///< of the operation that was carried out last
    Reading reading = Reading::Empty;
    bool replaced = false;     ///< of the last Delete
    bool unconfirmed = false;  ///< the last Write or Send failed for want of an answer to what was sent
    /// A part is missing, and the reading that found the others wasn't whole: it may stand on the handset.
    bool mayHaveMoreParts = false;
    std::string text8;           ///< local 8-bit text, while dcs isn't 8
    std::u16string text16;       ///< the text while dcs is 8
    std::string userDataHeader;  ///< of a single PDU, without its length octet
    std::u16string storage;      ///< "SM", "ME" or "MT"
    int status = smsUnread;
    SmsAddress serviceCentre;
    SmsAddress address;
    SmsTimestamp timestamp;
    SmsTimestamp validityTime;  ///< absolute TP-VP
    int messageType = deliver;  ///< TP-MTI
    uint8_t rejectDuplicates = 0;
    uint8_t replyPath = 0;
    uint8_t statusReport = 0;
    uint8_t messageReference = 0;
    uint8_t protocolId = 0;
    int validityFormat = 0;         ///< TP-VPF: 0, relativeValidity or absoluteValidity
    int dcs = 0;                    ///< 0, 4 or 8; 16 is 0 with class 0
    uint16_t validityRelative = 0;  ///< TP-VP, in the low byte
    uint8_t moreMessages = 0;
    uint8_t hasHeader = 0;
    /// The user data of each PDU: where hasHeader, the header's length octet and the header, then the text
    /// bytes, which for dcs 0 are those of FromGsmToPart, and octets as received for all else. A header of
    /// length 0 is none.
    std::vector<std::string> rawParts;
    EmsHandle emsMessage;
    std::array<uint8_t, 23> partDcs{};  ///< codings handed to the EMS reader

private:
    /// Header and body of the one PDU that is written, without copies of what the record holds.
    struct Payload {
        std::string_view header;
        std::string_view bytes;
        bool isText16 = false;     ///< the body is text16,
        std::u16string converted;  ///< or else it is text8 as units, after the bytes
    };

    void TakeLocation(const SmsRecord& other, size_t place);
    void TakeTextFromEms();
    bool WritePlain(HandsetLink& link, std::u16string_view to, int& error);
    bool WriteEms(HandsetLink& link, std::u16string_view to, int& error);
    bool PutPart(HandsetLink& link, SmsRecord& part, std::vector<std::string>& pdus, int& error);
    void GiveUpWrite(HandsetLink& link, std::u16string_view from);
    bool StandsAsKnown(HandsetLink& link, int& error);
    Payload TakePayload(const CodePage& page);
    void WriteUserData(PduBuffer& buffer, const Payload& payload) const;
    void ReadUserData(PduBuffer& buffer);
};

}  // namespace tarnbridge
