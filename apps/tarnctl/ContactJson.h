#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "phonebook/Contact.h"
#include "tarnctl/Output.h"

namespace tarnbridge {

/// A contact as the JSON object of the `vcard` verbs. A date that isn't set is left out.
Json ContactToJson(const Contact& contact);

/// The reverse. False, with the reason in `error`, if a field has the wrong type or an impossible value. No
/// field is required.
bool ContactFromJson(const Json& object, Contact& contact, std::string& error);

/// A line of `vcard write`: an object with the text `vcard`, whose bytes needn't be UTF-8, or `error`.
Json WriteVcardLine(std::string_view line);

/// `vcard read`: an object for each vCard of the handset, which has the details alone, or one with `error`.
std::vector<Json> ReadVcardText(std::string_view bytes);

/// `vcard import`: an object for each contact of a text in UTF-8, or one with `error` for a card without any.
std::vector<Json> ImportVcardText(std::string_view utf8);

/// A line of `contact check`: an object with `storage` ("SM", "ME" or "PC"), `name`, `mobile` (or `number`),
/// `home`, `office`, `fax`, `email` and `birthday` (day/month/year) as they are typed, and for a handset
/// `textLength` and `hasPackedUcs2`. Gives `{"ok": true}`, or `{"ok": false}` with `field` and `words` of the
/// first failure, or `error`. A birthday may be an object, too, as ContactToJson gives it.
Json CheckContactLine(std::string_view line);

}  // namespace tarnbridge
