#pragma once

#include <string_view>

namespace tarnbridge {

class HandsetLink;

/// What a handset stores in numbered places of a named memory: a message or a contact. An operation blocks
/// for its exchanges with the handset. It returns false when it fails, with `error` the number that the
/// handset gave, or -1 when it gave none. An operation that a kind of record doesn't have returns false.
class HandsetRecord {
public:
    virtual ~HandsetRecord() = default;

    /// Takes the record off the handset.
    virtual bool Remove(HandsetLink& /*link*/, int& error) {
        error = -1;
        return false;
    }

    /// Fills the record from place `index`, counted from 1, of the memory `storage`.
    virtual bool Read(HandsetLink& /*link*/, std::u16string_view /*storage*/, int /*index*/, int& error) {
        error = -1;
        return false;
    }

    /// Stores the record in the memory `storage`.
    virtual bool Write(HandsetLink& /*link*/, std::u16string_view /*storage*/, int& error) {
        error = -1;
        return false;
    }

protected:
    HandsetRecord() = default;
    HandsetRecord(const HandsetRecord&) = default;
    HandsetRecord(HandsetRecord&&) = default;
    HandsetRecord& operator=(const HandsetRecord&) = default;
    HandsetRecord& operator=(HandsetRecord&&) = default;
};

}  // namespace tarnbridge
