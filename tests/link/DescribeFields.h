#pragma once

#include <string>

#include "link/ATResult.h"

namespace tarnbridge {

/// A line's fields as one text, to compare and to read: `'text' 12 _ (1-250|250) [SM|ME]`.
inline std::string Describe(const ATLine& line) {
    std::string text;
    for (const ATParam& param : line) {
        if (!text.empty()) text += ' ';
        std::string items;
        for (const ATParam& item : param.items) {
            if (!items.empty()) items += ',';
            items += Describe({item});
        }
        switch (param.type) {
            case ATParam::Empty:
                text += '_';
                break;
            case ATParam::Text:
                text += '\'' + param.text + '\'';
                break;
            case ATParam::Number:
                text += std::to_string(param.number);
                break;
            case ATParam::Range:
                text += '(' + std::to_string(param.rangeLow) + '-' + std::to_string(param.rangeHigh) + '|' +
                        items + ')';
                break;
            case ATParam::List:
                text += '[' + items + ']';
                break;
        }
    }
    return text;
}

inline std::string Describe(const ATResult& result) {
    std::string text;
    for (const ATLine& line : result.lines)
        text += Describe(line) + '\n';
    return text;
}

}  // namespace tarnbridge
