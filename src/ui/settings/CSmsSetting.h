#pragma once

#include <QWidget>

class QVBoxLayout;

namespace tarnbridge {

class CTarnbridgeDoc;
enum class SettingIndex : int;
enum class Word : int;

/// The settings of messages: long ones, their encoding, the memory in which the phone keeps them, and whether
/// moving to the trash can is asked about.
class CSmsSetting : public QWidget {
    Q_OBJECT

public:
    explicit CSmsSetting(CTarnbridgeDoc& document, QWidget* parent = nullptr);

private:
    struct Choice {
        Word words;
        const char* name;
        const char16_t* value;
    };

    /// A group with two buttons for one text of the settings. A text that is neither value stands for the
    /// second one.
    void AddChoice(Word title, SettingIndex setting, const Choice& first, const Choice& second, Word hint);

    CTarnbridgeDoc& document_;
    QVBoxLayout* const layout_;
};

}  // namespace tarnbridge
