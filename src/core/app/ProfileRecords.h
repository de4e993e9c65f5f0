#pragma once

#include "core/app/ProfileStream.h"
#include "messaging/SmsRecord.h"
#include "phonebook/Contact.h"

namespace tarnbridge {

/// A message, without its places on the handset and the codings of its parts. Parts that it holds are written
/// as they are; if there are none, those of its EmsMessage are made for the moment.
void WriteRecord(ProfileWriter& out, SmsRecord& record);

/// The reverse, into a new record. No EmsMessage is made.
void ReadRecord(ProfileReader& in, SmsRecord& record);

/// A contact, without the company, the anniversary and detailsLoaded.
void WriteRecord(ProfileWriter& out, const Contact& contact);

/// The reverse, into a new contact.
void ReadRecord(ProfileReader& in, Contact& contact);

}  // namespace tarnbridge
