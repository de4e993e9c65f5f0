#include "ui/settings/CGeneralPage.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/app/CTarnbridgeDoc.h"
#include "core/app/Languages.h"
#include "platform/ProgramFolder.h"
#include "platform/Text.h"
#include "ui/PortWatcher.h"
#include "ui/QtText.h"
#include "ui/settings/PortListModel.h"

namespace tarnbridge {
namespace {

constexpr int noteWidth = 40;  // average characters

QLabel* MakeNote() {
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(label->fontMetrics().averageCharWidth() * noteWidth);
    // What there is to do may be a command to copy.
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

Word WordsOf(FlowControl flowControl) {
    switch (flowControl) {
        case FlowControl::Hardware:
            return Word::FlowHardware;
        case FlowControl::Software:
            return Word::FlowSoftware;
        case FlowControl::None:
            break;
    }
    return Word::FlowNone;
}

std::u16string Explain(const SerialOpenFailure& failure) {
    const std::u16string device = Utf8ToText(failure.device);
    const std::u16string group = Utf8ToText(failure.owningGroup);
    switch (failure.fault) {
        case SerialOpenFault::None:
            return Words(Word::Disconnected);
        case SerialOpenFault::Missing:
            return Words(Word::PortMissing);
        case SerialOpenFault::NoRights:
            return Words(Word::PortNoRights, {device, group, group});
        case SerialOpenFault::InUse:
            if (failure.modemManagerRuns) return Words(Word::PortProbed, {device});
            if (failure.holderName.empty()) return Words(Word::PortInUse, {device});
            return Words(Word::PortInUseBy, {device, Utf8ToText(failure.holderName)});
        case SerialOpenFault::NotSerial:
            return Words(Word::PortNotSerial, {device});
        case SerialOpenFault::UnsupportedRate:
            return Words(Word::PortRate, {device});
        case SerialOpenFault::Other:
            break;
    }
    return Utf8ToText(failure.systemText);
}

}  // namespace

CGeneralPage::CGeneralPage(CTarnbridgeDoc& document, QWidget* parent)
    : QWidget(parent),
      document_(document),
      ports_(new PortListModel(document.Store(), this)),
      port_(new QComboBox),
      otherDevice_(new QPushButton(QWords(Word::SettingsAddPort))),
      model_(new QComboBox),
      modelFacts_(MakeNote()),
      state_(MakeNote()),
      language_(new QComboBox) {
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(MakePhoneGroup());
    layout->addWidget(MakeProgramGroup());
    layout->addStretch(1);
    AlignLabels();
    setFocusProxy(port_);
    connect(new PortWatcher(document.Store(), this), &PortWatcher::changed, this, &CGeneralPage::ShowPorts);
    ShowState();
}

QWidget* CGeneralPage::MakePhoneGroup() {
    port_->setObjectName(QStringLiteral("port"));
    port_->setModel(ports_);
    port_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    port_->setToolTip(QWords(Word::SettingsPortTip));
    port_->setAccessibleName(PlainWords(Word::SettingsPort));
    ShowPorts();
    connect(port_, &QComboBox::activated, this,
            [this](int row) { ChoosePort(port_->itemData(row, PortListModel::NumberRole).toInt()); });
    otherDevice_->setObjectName(QStringLiteral("otherDevice"));
    connect(otherDevice_, &QPushButton::clicked, this, &CGeneralPage::AskForDevice);

    model_->setObjectName(QStringLiteral("model"));
    model_->setAccessibleName(PlainWords(Word::SettingsModel));
    for (const auto& [key, model] : document_.Models().All()) {
        const QString name = ToQString(key);
        const QString words = ToQString(model.phoneModel);
        model_->addItem(words.isEmpty() || words == name ? name : QStringLiteral("%1 - %2").arg(name, words),
                        name);
    }
    model_->setCurrentIndex(model_->findData(ToQString(document_.Model().first)));
    connect(model_, &QComboBox::activated, this, &CGeneralPage::ChooseModel);
    modelFacts_->setObjectName(QStringLiteral("modelFacts"));
    ShowModelFacts();
    state_->setObjectName(QStringLiteral("state"));

    auto* const portRow = new QHBoxLayout;
    portRow->addWidget(port_, 1);
    portRow->addWidget(otherDevice_);
    auto* const group = new QGroupBox(QWords(Word::SettingsPhoneGroup));
    auto* const form = new QFormLayout(group);
    auto* const portLabel = new QLabel(QWords(Word::SettingsPort));
    portLabel->setBuddy(port_);
    form->addRow(portLabel, portRow);
    form->addRow(QWords(Word::SettingsModel), model_);
    form->addRow(QString(), modelFacts_);
    form->addRow(QWords(Word::SettingsState), state_);
    return group;
}

/// The fields of all groups stand under each other.
void CGeneralPage::AlignLabels() {
    QList<QWidget*> labels;
    int width = 0;
    for (const QFormLayout* const form : findChildren<QFormLayout*>()) {
        for (int row = 0; row < form->rowCount(); ++row) {
            const QLayoutItem* const item = form->itemAt(row, QFormLayout::LabelRole);
            if (!item || !item->widget()) continue;
            labels << item->widget();
            width = std::max(width, item->widget()->sizeHint().width());
        }
    }
    for (QWidget* const label : labels)
        label->setMinimumWidth(width);
}

QWidget* CGeneralPage::MakeProgramGroup() {
    language_->setObjectName(QStringLiteral("language"));
    language_->setAccessibleName(PlainWords(Word::SettingsLanguage));
    language_->setToolTip(QWords(Word::SettingsLanguageTip));
    const auto hasWords = [](int32_t id) { return FindData(LanguageFileName(id)).has_value(); };
    for (const Language& language : AvailableLanguages(hasWords))
        language_->addItem(ToQString(language.name), language.id);
    language_->setCurrentIndex(
        language_->findData(document_.Preferences().GetNumber(SettingIndex::Language)));
    connect(language_, &QComboBox::activated, this, &CGeneralPage::ChooseLanguage);

    auto* const group = new QGroupBox(QWords(Word::SettingsProgramGroup));
    auto* const form = new QFormLayout(group);
    form->addRow(QWords(Word::SettingsLanguage), language_);
    return group;
}

void CGeneralPage::ShowPorts() {
    const int number = document_.Preferences().GetNumber(SettingIndex::Port);
    ports_->Refresh(number);
    port_->setCurrentIndex(ports_->RowOf(number));
}

void CGeneralPage::ChoosePort(int number) {
    if (number == document_.Preferences().GetNumber(SettingIndex::Port)) return;
    document_.Preferences().SetNumber(SettingIndex::Port, number);
    ShowPorts();
    document_.Watch().Reconnect();
    Q_EMIT modelChanged();
    ShowState();
}

void CGeneralPage::AskForDevice() {
    const auto device = document_.User().AskText({Words(Word::SettingsDeviceQuestion)});
    if (!device || device->empty()) return;
    if (const int number = ports_->Add(ToPath(ToQString(*device)).string())) {
        ChoosePort(number);
    } else {
        document_.User().Tell(Words(Word::SettingsDeviceBad, {*device}));
    }
}

void CGeneralPage::ChooseModel() {
    const std::u16string key = ToText(model_->currentData().toString());
    if (key == document_.Model().first) return;
    document_.Preferences().SetText(SettingIndex::Phone, key);
    ShowModelFacts();
    document_.Watch().Reconnect();
    Q_EMIT modelChanged();
    ShowState();
}

void CGeneralPage::ShowModelFacts() {
    const PhoneModelInfo& model = document_.Model().second;
    modelFacts_->setText(QWords(
        Word::SettingsModelFacts,
        {int64_t{model.baudRate}, Words(WordsOf(model.flowControl)), model.lcdWidth, model.lcdHeight}));
}

void CGeneralPage::ShowState() {
    const LinkWatch& watch = document_.Watch();
    const std::u16string words = watch.IsConnected()  ? Words(Word::Connected)
                                 : watch.IsPortOpen() ? Words(Word::PortSilent)
                                                      : Explain(watch.OpenFailure());
    state_->setText(ToQString(words));
    state_->setAccessibleName(PlainWords(Word::SettingsState) + QStringLiteral(": ") + state_->text());
}

void CGeneralPage::ChooseLanguage() {
    Settings& settings = document_.Preferences();
    const int32_t language = language_->currentData().toInt();
    if (language == settings.GetNumber(SettingIndex::Language)) return;
    settings.SetNumber(SettingIndex::Language, language);
    if (document_.User().Ask({Words(Word::RestartNow)}) == Answer::Yes) Q_EMIT restartWanted();
}

}  // namespace tarnbridge
