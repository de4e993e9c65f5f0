// settings models, settings dialup; what --model stands for.

#include <fmt/format.h>

#include "core/base/DialUpSettings.h"
#include "core/base/IniScan.h"
#include "core/base/PhoneModels.h"
#include "core/base/Settings.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "tarnctl/Command.h"
#include "tarnctl/Output.h"

namespace tarnbridge {
namespace {

const char* NameOf(FlowControl flow) {
    switch (flow) {
        case FlowControl::Hardware:
            return "hardware";
        case FlowControl::Software:
            return "software";
        case FlowControl::None:
            break;
    }
    return "none";
}

std::optional<std::string> ReadSettingsFile(const std::string& path) {
    auto content = ReadFile(path, largestSettingsFile);
    if (content) return std::move(*content);
    PrintWords(content.Failure().text);
    return std::nullopt;
}

ExitCode ShowModels(const GlobalOptions& global, const std::string& file) {
    PhoneModels models;
    if (file.empty()) {
        models.Load();
    } else {
        const auto content = ReadSettingsFile(file);
        if (!content) return OperationFailed;
        models.Load(*content);
    }
    for (const auto& [key, info] : models.All()) {
        const Json record = {{"key", TextToUtf8(key)},    {"phoneModel", TextToUtf8(info.phoneModel)},
                             {"baudRate", info.baudRate}, {"flowControl", NameOf(info.flowControl)},
                             {"hasMms", info.hasMms},     {"hasFileManager", info.hasFileManager},
                             {"lcdWidth", info.lcdWidth}, {"lcdHeight", info.lcdHeight}};
        if (global.json) {
            PrintRecord(record);
        } else {
            PrintLine(fmt::format("{:<12} {:>6} {:<8} {}x{}{}{}{}", TextToUtf8(key), info.baudRate,
                                  NameOf(info.flowControl), info.lcdWidth, info.lcdHeight,
                                  info.hasMms ? " MMS" : "", info.hasFileManager ? " files" : "",
                                  info.phoneModel.empty() ? "" : "  " + TextToUtf8(info.phoneModel)));
        }
    }
    return Done;
}

Json NamesOf(const std::vector<std::u16string>& names) {
    Json list = Json::array();
    for (const std::u16string& name : names)
        list.push_back(TextToUtf8(name));
    return list;
}

void ShowOperator(const GlobalOptions& global, const OperatorRecord& record) {
    if (global.json) {
        PrintRecord({{"record", "operator"},
                     {"number", record.number},
                     {"name", TextToUtf8(record.name)},
                     {"apn", TextToUtf8(record.apn)},
                     {"dialNumber", TextToUtf8(record.dialNumber)},
                     {"username", TextToUtf8(record.username)},
                     {"password", TextToUtf8(record.password)},
                     {"groupName", TextToUtf8(record.groupName)}});
    } else {
        PrintLine(fmt::format("{:>4} {:<24} apn {:<20} dials {:<12}{}", record.number,
                              TextToUtf8(record.name), TextToUtf8(record.apn), TextToUtf8(record.dialNumber),
                              record.groupName.empty() ? "" : " in " + TextToUtf8(record.groupName)));
    }
}

ExitCode ShowDialUp(const GlobalOptions& global, const std::string& file) {
    const auto content = ReadSettingsFile(file);
    if (!content) return OperationFailed;
    const DialUpSettings settings = ReadDialUpSettings(*content);
    if (global.json) {
        PrintRecord({{"record", "groups"},
                     {"usedGroupName", TextToUtf8(settings.usedGroupName)},
                     {"groupNames", NamesOf(settings.groupNames)}});
    } else {
        for (const std::u16string& name : settings.groupNames) {
            PrintLine(fmt::format("group {}{}", TextToUtf8(name),
                                  name == settings.usedGroupName ? " (in use)" : ""));
        }
    }
    for (const OperatorRecord& record : settings.operators)
        ShowOperator(global, record);
    return Done;
}

}  // namespace

LinkSpeed ChooseLinkSpeed(const GlobalOptions& options, EntryStore& store) {
    LinkSpeed speed;
    if (!options.model.empty() || (!options.baudRate && !options.flowControl)) {
        PhoneModels models;
        models.Load();
        Settings settings(store);
        settings.Load();
        const std::u16string key =
            options.model.empty() ? settings.GetText(SettingIndex::Phone) : Utf8ToText(options.model);
        const PhoneModelInfo& info = models.InUse(key).second;
        speed = {info.baudRate, info.flowControl};
    }
    if (options.baudRate) speed.baudRate = *options.baudRate;
    if (options.flowControl) speed.flowControl = *options.flowControl;
    return speed;
}

bool IsKnownModel(const std::string& key) {
    PhoneModels models;
    models.Load();
    PhoneModelInfo info;
    if (models.Find(Utf8ToText(key), info)) return true;
    PrintWords(fmt::format(
        "there is no phone model '{}': 'tarnctl settings models' lists those that are known", key));
    return false;
}

void AddSettingsCommands(CLI::App& app, Action& chosen) {
    CLI::App* settings = app.add_subcommand("settings", "Look into the files of settings");
    settings->require_subcommand(1);
    using Show = ExitCode (*)(const GlobalOptions&, const std::string&);
    const auto add = [&](const char* name, const char* description, Show show) {
        const auto file = std::make_shared<std::string>();
        CLI::App* command = settings->add_subcommand(name, description);
        command->callback([&chosen, file, show] {
            chosen = [=](const GlobalOptions& global) { return show(global, *file); };
        });
        return command->add_option("FILE", *file)->type_name("");
    };
    add("models", "The phone models of a file, or those that --model knows", ShowModels)
        ->description("A file such as Tarnbridge.ini; without one, what the program finds");
    add("dialup", "The groups and operators of a file", ShowDialUp)
        ->description("A file such as DialUpSetting.ini")
        ->required();
}

}  // namespace tarnbridge
