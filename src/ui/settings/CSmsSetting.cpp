#include "ui/settings/CSmsSetting.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/app/CTarnbridgeDoc.h"
#include "ui/QtText.h"

namespace tarnbridge {

CSmsSetting::CSmsSetting(CTarnbridgeDoc& document, QWidget* parent)
    : QWidget(parent), document_(document), layout_(new QVBoxLayout(this)) {
    AddChoice(Word::SettingsLongSms, SettingIndex::LongSms, {Word::SettingsActivate, "longSmsOn", u"TRUE"},
              {Word::SettingsDeactivate, "longSmsOff", u"FALSE"}, Word::SettingsLongSmsHint);
    AddChoice(Word::SettingsEncoding, SettingIndex::SevenBitSms,
              {Word::SettingsSevenBit, "sevenBit", u"TRUE"}, {Word::SettingsAutomatic, "automatic", u"FALSE"},
              Word::SettingsEncodingHint);
    AddChoice(Word::SettingsMemory, SettingIndex::SmsMemory, {Word::MemorySim, "memorySim", u"SM"},
              {Word::MemoryPhone, "memoryPhone", u"ME"}, Word::SettingsMemoryHint);
    auto* const askTrash = new QCheckBox(QWords(Word::SettingsAskTrash));
    askTrash->setObjectName(QStringLiteral("askTrash"));
    Settings& settings = document_.Preferences();
    askTrash->setChecked(settings.GetText(SettingIndex::AskTrash) != u"FALSE");
    connect(askTrash, &QCheckBox::toggled, this, [&settings](bool checked) {
        settings.SetText(SettingIndex::AskTrash, checked ? u"TRUE" : u"FALSE");
    });
    layout_->addWidget(askTrash);
    layout_->addStretch(1);
}

void CSmsSetting::AddChoice(Word title, SettingIndex setting, const Choice& first, const Choice& second,
                            Word hint) {
    auto* const group = new QGroupBox(QWords(title));
    auto* const buttons = new QHBoxLayout;
    Settings& settings = document_.Preferences();
    const bool isFirst = settings.GetText(setting) == first.value;
    for (const Choice* const choice : {&first, &second}) {
        auto* const button = new QRadioButton(QWords(choice->words));
        button->setObjectName(QLatin1String(choice->name));
        button->setChecked(isFirst == (choice == &first));
        if (button->isChecked() && !focusProxy()) setFocusProxy(button);
        connect(button, &QRadioButton::toggled, this,
                [&settings, setting, value = choice->value](bool checked) {
                    if (checked) settings.SetText(setting, value);
                });
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    auto* const note = new QLabel(QWords(hint));
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    auto* const rows = new QVBoxLayout(group);
    rows->addLayout(buttons);
    rows->addWidget(note);
    group->setAccessibleDescription(note->text());
    layout_->addWidget(group);
}

}  // namespace tarnbridge
