// text to-hex, from-hex, pack.

#include <iostream>
#include <vector>

#include <fmt/format.h>

#include "link/WireText.h"
#include "platform/Text.h"
#include "tarnctl/Command.h"
#include "tarnctl/Output.h"

namespace tarnbridge {
namespace {

struct TextOptions {
    std::vector<std::string> texts;
    bool littleEndian = false;
};

/// Each text of the command line, or else each line of the standard input, is one record; one that fails
/// doesn't stop the others. A conversion gives nothing and has told why when it fails.
using Conversion = std::function<std::optional<Json>(const std::string& text, const TextOptions& options)>;

ExitCode ConvertEach(const GlobalOptions& global, const TextOptions& options, const char* shown,
                     const Conversion& convert) {
    ExitCode code = Done;
    const auto convertOne = [&](const std::string& text) {
        const auto record = convert(text, options);
        if (!record) {
            code = OperationFailed;
        } else if (global.json) {
            PrintRecord(*record);
        } else {
            PrintLine((*record)[shown].get<std::string>());
        }
    };
    for (const std::string& text : options.texts)
        convertOne(text);
    if (options.texts.empty()) {
        for (std::string line; !OutputFailed() && std::getline(std::cin, line);)
            convertOne(line);
    }
    return code;
}

std::optional<Json> ToHex(const std::string& text, const TextOptions& options) {
    return Json{{"hex", WideToHexUcs2(Utf8ToText(text), !options.littleEndian)}};
}

std::optional<Json> FromHex(const std::string& hex, const TextOptions& options) {
    try {
        return Json{{"text", TextToUtf8(HexUcs2ToWide(hex, !options.littleEndian))}};
    } catch (const WireTextError&) {
        PrintWords(fmt::format("not hexadecimal in upper case: {}", hex));
        return std::nullopt;
    }
}

std::optional<Json> Pack(const std::string& text, const TextOptions&) {
    std::string packed;
    const int length = PackUcs2Alpha(Utf8ToText(text), packed);
    if (length == 0) {
        PrintWords(fmt::format("can't be packed against one half page: {}", text));
        return std::nullopt;
    }
    return Json{{"hex", BytesToHex(packed)}, {"length", length}};
}

}  // namespace

void AddTextCommands(CLI::App& app, Action& chosen) {
    CLI::App* text = app.add_subcommand("text", "Convert between text and its forms on the wire");
    text->require_subcommand(1);
    const auto add = [&](const char* name, const char* description, const char* argument, const char* shown,
                         const Conversion& convert) {
        const auto options = std::make_shared<TextOptions>();
        CLI::App* command = text->add_subcommand(name, description);
        command->add_option(argument, options->texts, "Without any, each line of the standard input is one")
            ->type_name("");
        command->callback([&chosen, options, shown, convert] {
            chosen = [=](const GlobalOptions& global) {
                return ConvertEach(global, *options, shown, convert);
            };
        });
        return std::pair(command, options);
    };
    const auto [toHex, toHexOptions] = add("to-hex", "Text to hexadecimal UCS-2", "TEXT", "hex", ToHex);
    toHex->add_flag("--little-endian", toHexOptions->littleEndian, "Low byte of each unit first");
    const auto [fromHex, fromHexOptions] =
        add("from-hex", "Hexadecimal UCS-2 to text", "HEX", "text", FromHex);
    fromHex->add_flag("--little-endian", fromHexOptions->littleEndian, "Low byte of each unit first");
    add("pack", "Text to a packed alpha identifier (0x81), in hexadecimal", "TEXT", "hex", Pack);
}

}  // namespace tarnbridge
