#pragma once

#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Result.h"

namespace tarnbridge::simulator {

/// A message in its memory. Keys of the state file that the simulator doesn't know travel in `other`, here
/// and in the structures below.
struct StoredMessage {
    int stat = 0;     ///< 0 unread, 1 read, 2 draft, 3 sent, 5 outbox, 7 private
    std::string pdu;  ///< upper-case hex, with the service centre in front
    nlohmann::json other = nlohmann::json::object();
};

/// The messages of "SM" or "ME" by location, 1 to the capacity in each memory.
struct MessageMemory {
    int capacity = 0;  ///< 0: the handset hasn't got this memory
    std::map<int, StoredMessage> items;
    nlohmann::json other = nlohmann::json::object();

    /// The lowest free location, or 0.
    int Free() const;
};

struct StoredContact {
    std::u16string name;
    std::string number;  ///< dialling characters, with its + if international
    nlohmann::json other = nlohmann::json::object();
};

/// The contacts of "SM" or "ME" by slot, 1 to the capacity.
struct ContactStorage {
    int capacity = 0;  ///< 0: the handset hasn't got this storage
    int numberLength = 40;
    int nameLength = 14;  ///< in bytes of the SIM's coding of names, 3GPP TS 11.11 annex B
    std::map<int, StoredContact> items;
    nlohmann::json other = nlohmann::json::object();
};

/// Who the handset says it is.
struct Identity {
    std::string maker = "Northlight";
    std::string model = "NL-300";
    std::string revision = "NL300_V1.04";
    std::string imei = "490154203237518";
    std::string imsi = "001010123456789";
    std::string ownNumber = "+15550100200";
    std::string serviceCentre = "+15550109999";
    std::string operatorName = "Testnet";
    nlohmann::json other = nlohmann::json::object();
};

/// How this handset behaves where handsets differ.
struct Features {
    std::string storeQuery = "(0-3)";  ///< what AT+EQUERY=0 reports: "(0-3)", "3", or "ERROR"
    bool emptyIsOk = true;             ///< AT+CMGR of an empty location answers OK, otherwise +CMS ERROR: 321
    int channelMode = 4;               ///< what AT+ESUO? reports first; -1 answers ERROR
    bool packedUcs2 = true;            ///< the character set UCS2_0x81
    bool fileCount = true;             ///< AT+EFSC
    bool vcard = true;                 ///< AT+EVCARD
    int chunkSize = 1024;              ///< what AT+EFSW? reports
    bool escapeEndsPrompt = true;
    bool simInserted = true;
    nlohmann::json other = nlohmann::json::object();
};

/// All that the handset keeps when it is switched off. Plain data: whoever shares it between threads locks.
class HandsetContent {
public:
    /// Memories of a usual size with nothing in them.
    static HandsetContent Empty();

    /// A phone in use: messages of all kinds in several languages and alphabets in both memories, contacts on
    /// the SIM and on the phone.
    static HandsetContent Demo();

    /// From the text of a state file. The failure says what is wrong and where.
    static Result<HandsetContent> FromJson(std::string_view text);

    std::string ToJson() const;

    /// The memory or storage of that name, "SM" or "ME"; null when there is none of it in this handset.
    MessageMemory* Messages(std::string_view name);
    const MessageMemory* Messages(std::string_view name) const;
    ContactStorage* Contacts(std::string_view name);

    /// Puts a message at the lowest free location of a memory and gives the location, or 0 when it is full.
    int Add(std::string_view memory, int stat, std::string pdu);

    Identity identity;
    Features features;
    MessageMemory simMessages;
    MessageMemory phoneMessages;
    ContactStorage simContacts;
    ContactStorage phoneContacts;
    nlohmann::json other = nlohmann::json::object();

    /// What the features of the moment say; without a SIM its memory and storage aren't there.
    bool simInserted = true;

    bool HasSim() const { return simInserted && (simMessages.capacity > 0 || simContacts.capacity > 0); }
};

}  // namespace tarnbridge::simulator
