#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "link/ATResult.h"

namespace tarnbridge {

/// Keys in the order in which they were put.
using Json = nlohmann::ordered_json;

/// One record on standard output, as one line. Bytes that aren't UTF-8 become U+FFFD.
void PrintRecord(const Json& record);

/// One line of data for people on standard output.
void PrintLine(std::string_view line);

/// Whether something that was printed was lost: the disk is full, or nobody reads the pipe any more.
bool OutputFailed();

/// One line of words on standard error.
void PrintWords(std::string_view words);

/// Words that replace each other on one line of standard error, if that is a terminal.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(std::string_view words);

private:
    const bool visible_;
};

/// A field as `{"type":"number","value":3}`; the types are empty, text, number, range and list. Texts are the
/// handset's bytes, widened by the system's code page.
Json FieldToJson(const ATParam& field);

/// The same for people: `"text"`, `3`, `(1-250)`, `("SM","ME")`.
std::string FieldToWords(const ATParam& field);

}  // namespace tarnbridge
