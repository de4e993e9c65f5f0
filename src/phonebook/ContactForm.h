#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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
    std::string_view words;    ///< key of the words in the string table
    std::string_view label;    ///< key of the label that stands for %s, in lower case; or empty
    std::vector<int> numbers;  ///< what stands for the %d of the words, in order

    /// The sentence for the user, with the words of a string table.
    std::u16string Sentence(const std::function<std::u16string(std::string_view key)>& table) const;
};

/// The first check of the editor that the form fails, or nothing. A contact for the SIM has no details, so
/// these aren't looked at.
std::optional<ContactProblem> CheckContactForm(const ContactForm& form, const HandsetNameLimits& limits);

/// The English words of these checks by their keys; empty for another key.
std::u16string_view EnglishContactWords(std::string_view key);

}  // namespace tarnbridge
