#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/base/StringTable.h"
#include "phonebook/ContactChecks.h"

namespace tarnbridge {

/// A contact as it is typed in the editor.
struct ContactForm {
    std::u16string storage;  ///< "SM", "ME" or "PC"
    std::u16string name;
    std::u16string mobile;
    std::u16string home;
    std::u16string office;
    std::u16string fax;
    std::u16string email;
    std::u16string birthday;  ///< day/month/year
};

enum class ContactField { name, mobile, home, office, fax, email, birthday };

/// Why a form can't be stored, and the field that wants the focus.
struct ContactProblem {
    ContactField field;
    Word words;
    std::optional<Word> label;  ///< stands for %s, in lower case
    std::vector<int> numbers;   ///< what stands for the %d of the words, in order

    /// The sentence for the user, in the program's words.
    std::u16string Sentence() const;
};

/// The first check of the editor that the form fails, or nothing. A contact for the SIM has no details, so
/// these aren't looked at.
std::optional<ContactProblem> CheckContactForm(const ContactForm& form, const HandsetNameLimits& limits);

}  // namespace tarnbridge
