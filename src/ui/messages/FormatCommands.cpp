#include "ui/messages/FormatCommands.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/messages/ColourMenu.h"
#include "ui/messages/Command.h"
#include "ui/messages/MessageEdit.h"

namespace tarnbridge {
namespace {

constexpr EmsTextFormat plain;

}  // namespace

FormatCommands::FormatCommands(MessageEdit& text) : QObject(&text), text_(text) {
    using Change = FormatChange;
    const struct {
        CommandLook look;
        QKeySequence key;
        Attribute attribute;
    } styles[] = {
        {{"bold", Word::FormatBold, "bold"}, QKeySequence::Bold, &Change::bold},
        {{"italic", Word::FormatItalic, "italic"}, QKeySequence::Italic, &Change::italic},
        {{"underline", Word::FormatUnderline, "underline"}, QKeySequence::Underline, &Change::underline},
        {{"strikethrough", Word::FormatStrikethrough, "strikethrough"}, {}, &Change::strikethrough},
    };
    for (const auto& style : styles) {
        styles_ << MakeCommand(this, style.look, style.key);
        Add(styles_.back(), style.attribute, 1, 0);
    }
    sizes_ = MakeGroup(Word::FormatSize, "size-normal", &Change::size, plain.size,
                       {{{"sizeSmall", Word::SizeSmall, "size-small"}, 8},
                        {{"sizeNormal", Word::SizeNormal, "size-normal"}, 0},
                        {{"sizeLarge", Word::SizeLarge, "size-large"}, 4}});
    alignments_ = MakeGroup(Word::FormatAlignment, "align-left", &Change::alignment, plain.alignment,
                            {{{"alignLeft", Word::AlignLeft, "align-left"}, 0},
                             {{"alignCentre", Word::AlignCentre, "align-centre"}, 1},
                             {{"alignRight", Word::AlignRight, "align-right"}, 2}});
    foreground_ =
        new ColourMenu("foreground", Word::FormatForeground, "text-colour", plain.foreground, &text_);
    background_ =
        new ColourMenu("background", Word::FormatBackground, "background-colour", plain.background, &text_);
    connect(foreground_, &ColourMenu::chosen, this,
            [this](int colour) { Set(&Change::foreground, static_cast<uint8_t>(colour)); });
    connect(background_, &ColourMenu::chosen, this,
            [this](int colour) { Set(&Change::background, static_cast<uint8_t>(colour)); });
    connect(&text_, &MessageEdit::lookChanged, this, &FormatCommands::Follow);
    Follow();
}

void FormatCommands::Add(QAction* action, Attribute attribute, uint8_t value, uint8_t otherwise) {
    action->setCheckable(true);
    toggles_.append({action, attribute, value});
    connect(action, &QAction::triggered, this,
            [=, this](bool checked) { Set(attribute, checked ? value : otherwise); });
}

QMenu* FormatCommands::MakeGroup(Word title, const char* icon, Attribute attribute, uint8_t otherwise,
                                 std::initializer_list<std::pair<CommandLook, uint8_t>> values) {
    auto* const menu = new QMenu(QWords(title), &text_);
    menu->setIcon(ThemedIcon(QLatin1String(icon)));
    menu->menuAction()->setToolTip(PlainWords(title));
    for (const auto& [look, value] : values) {
        QAction* const action = MakeCommand(this, look);
        Add(action, attribute, value, otherwise);
        menu->addAction(action);
    }
    return menu;
}

void FormatCommands::Set(Attribute attribute, uint8_t value) {
    FormatChange change;
    change.*attribute = value;
    text_.ApplyFormat(change);
    // Where nothing changes in the message, what was clicked shows its state again.
    Follow();
}

void FormatCommands::Follow() {
    const FormatChange common = text_.CommonFormat();
    for (const Toggle& toggle : toggles_)
        toggle.action->setChecked(common.*toggle.attribute == toggle.value);
    foreground_->SetCurrent(common.foreground);
    background_->SetCurrent(common.background);
}

void FormatCommands::AddTo(QMenu& menu) const {
    menu.addActions(styles_);
    menu.addSeparator();
    for (QMenu* const part : QList<QMenu*>{sizes_, alignments_, foreground_, background_})
        menu.addMenu(part);
}

void FormatCommands::AddTo(QToolBar& bar) const {
    bar.addActions(styles_);
    for (QMenu* const part : QList<QMenu*>{sizes_, alignments_, foreground_, background_}) {
        bar.addAction(part->menuAction());
        auto* const button = qobject_cast<QToolButton*>(bar.widgetForAction(part->menuAction()));
        button->setPopupMode(QToolButton::InstantPopup);
    }
}

}  // namespace tarnbridge
