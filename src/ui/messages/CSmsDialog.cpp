#include "ui/messages/CSmsDialog.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/dialogs/DialogParent.h"
#include "ui/frame/ToolbarView.h"
#include "ui/messages/Command.h"
#include "ui/messages/FormatCommands.h"
#include "ui/messages/MessageEdit.h"
#include "ui/messages/NoteLine.h"
#include "ui/messages/ObjectCommands.h"

namespace tarnbridge {
namespace {

constexpr QSize usualSize(820, 480);
constexpr qsizetype longestTitle = 40;

}  // namespace

CSmsDialog::CSmsDialog(std::unique_ptr<MessageDraft> draft, const Surroundings& surroundings, QWidget* parent)
    : QMainWindow(parent),
      surroundings_(surroundings),
      draft_(std::move(draft)),
      recipients_(new QLineEdit),
      text_(new MessageEdit(draft_->Editor())),
      note_(new NoteLine),
      counter_(new QLabel) {
    setObjectName(QStringLiteral("messageEditor"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(ProgramIcon());
    LayOut();
    MakeCommands();
    auto* const formats = new FormatCommands(*text_);
    auto* const objects = new ObjectCommands(*text_, surroundings_.user);
    MakeMenus(*formats, *objects);
    MakeToolBar(*formats, *objects);
    resize(usualSize);

    connect(objects, &ObjectCommands::refused, note_, &NoteLine::Show);
    connect(text_, &MessageEdit::refused, note_, &NoteLine::Show);
    connect(text_, &MessageEdit::edited, this, [this] {
        note_->Clear();
        Refresh();
    });
    connect(recipients_, &QLineEdit::textChanged, this, [this](const QString& text) {
        draft_->SetRecipients(ToText(text));
        note_->Clear();
        Refresh();
    });
    Refresh();
    (recipients_->text().isEmpty() ? static_cast<QWidget*>(recipients_) : text_)->setFocus();
}

CSmsDialog::~CSmsDialog() {
    // The text looks at the draft to its end.
    delete takeCentralWidget();
}

void CSmsDialog::LayOut() {
    recipients_->setObjectName(QStringLiteral("recipients"));
    recipients_->setText(ToQString(draft_->Recipients()));
    recipients_->setPlaceholderText(QWords(Word::RecipientsHint));
    text_->setObjectName(QStringLiteral("text"));
    text_->setAccessibleName(QWords(Word::EditorText));
    counter_->setObjectName(QStringLiteral("counter"));
    counter_->setAccessibleName(QWords(Word::EditorLength));
    auto* const label = new QLabel(QWords(Word::RecipientsLabel));
    label->setBuddy(recipients_);
    addContact_ = MakeCommand(this, {"addFromPhonebook", Word::AddFromPhonebook, "add-recipient"});
    auto* const addContact = new QToolButton;
    addContact->setDefaultAction(addContact_);

    auto* const content = new QWidget;
    auto* const line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(recipients_, 1);
    line->addWidget(addContact);
    auto* const layout = new QVBoxLayout(content);
    layout->addLayout(line);
    layout->addWidget(text_, 1);
    layout->addWidget(note_);
    layout->addWidget(counter_, 0, Qt::AlignRight);
    setCentralWidget(content);
}

void CSmsDialog::MakeCommands() {
    send_ = MakeCommand(this, {"send", Word::CommandSend, "send"}, Qt::CTRL | Qt::Key_Return);
    save_ = MakeCommand(this, {"save", Word::CommandSave, "save"}, QKeySequence::Save);
    close_ = MakeCommand(this, {"close", Word::CommandClose}, QKeySequence::Close);
    connect(send_, &QAction::triggered, this, &CSmsDialog::Send);
    connect(save_, &QAction::triggered, this, [this] { Save(false); });
    connect(close_, &QAction::triggered, this, &QWidget::close);
    connect(addContact_, &QAction::triggered, this, [this] { note_->Show(QWords(Word::NoContactsYet)); });
}

void CSmsDialog::MakeMenus(const FormatCommands& formats, const ObjectCommands& objects) {
    QMenu* const message = menuBar()->addMenu(QWords(Word::MenuMessage));
    message->addActions({send_, save_, addContact_});
    message->addSeparator();
    message->addAction(close_);
    QMenu* const edit = menuBar()->addMenu(QWords(Word::MenuEdit));
    edit->addActions({text_->UndoCommand(), text_->RedoCommand()});
    edit->addSeparator();
    edit->addActions({text_->CutCommand(), text_->CopyCommand(), text_->PasteCommand(),
                      text_->DeleteCommand(), text_->SelectAllCommand()});
    objects.AddTo(*menuBar()->addMenu(QWords(Word::MenuInsert)));
    formats.AddTo(*menuBar()->addMenu(QWords(Word::MenuFormat)));
    menuBar()->addMenu(QWords(Word::MenuView))->addActions(text_->ZoomCommands());
}

void CSmsDialog::MakeToolBar(const FormatCommands& formats, const ObjectCommands& objects) {
    auto* const bar = new ToolbarView;
    bar->setObjectName(QStringLiteral("tools"));
    bar->setWindowTitle(QWords(Word::ToolbarName));
    addToolBar(bar);
    bar->addActions({send_, save_});
    qobject_cast<QToolButton*>(bar->widgetForAction(send_))->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->addSeparator();
    bar->addActions({text_->CutCommand(), text_->CopyCommand(), text_->PasteCommand()});
    bar->addSeparator();
    bar->addActions({text_->UndoCommand(), text_->RedoCommand()});
    bar->addSeparator();
    formats.AddTo(*bar);
    bar->addSeparator();
    objects.AddTo(*bar);
}

void CSmsDialog::Refresh() {
    counter_->setText(ToQString(draft_->Editor().CounterText()));
    const QString to = ToQString(draft_->Recipients()).simplified();
    const QString shortened = to.size() > longestTitle ? to.left(longestTitle) + QChar(0x2026) : to;
    QString title =
        to.isEmpty() ? QWords(Word::EditorNewMessage) : QWords(Word::EditorMessageTo, {ToText(shortened)});
    // The place of the sign for what is unsaved; in a title it would otherwise be one itself.
    setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")) + QLatin1String("[*]"));
    setWindowModified(draft_->Modified());
}

void CSmsDialog::AddRecipient(const QString& recipient) {
    if (const auto fault = draft_->AddRecipient(ToText(recipient)))
        note_->Show(QWords(*fault));
    else
        recipients_->setText(ToQString(draft_->Recipients()));
}

std::optional<SmsRecord> CSmsDialog::MakeRecord(const CheckedRecipients& checked) {
    note_->Clear();
    if (!checked) {
        QApplication::beep();
        note_->Show(QWords(*checked.fault));
        recipients_->setFocus();
        recipients_->selectAll();
        return std::nullopt;
    }
    std::optional<SmsRecord> record = draft_->MakeRecord(checked, surroundings_.clock);
    if (record && record->SettleParts()) return record;
    note_->Show(QWords(Word::EmsObjectNotCreated));
    return std::nullopt;
}

void CSmsDialog::Send() {
    closes_ = false;
    const auto record = MakeRecord(CheckRecipients(draft_->Recipients(), surroundings_.matcher));
    if (record) Q_EMIT sendWanted(*record);
}

void CSmsDialog::Save(bool closes) {
    closes_ = closes;
    if (const auto record = MakeRecord(CheckDraftRecipients(draft_->Recipients(), surroundings_.matcher)))
        Q_EMIT saveWanted(*record);
    else
        NoteNotSaved();
}

void CSmsDialog::NoteSaved() {
    draft_->MarkSaved();
    Refresh();
    if (std::exchange(closes_, false)) close();
}

void CSmsDialog::NoteNotSaved() {
    if (std::exchange(closes_, false)) Q_EMIT stays();
}

void CSmsDialog::NoteSent() {
    draft_->MarkSaved();
    close();
}

void CSmsDialog::closeEvent(QCloseEvent* event) {
    if (closes_) {
        event->ignore();
        return;
    }
    // Where the frame closes its windows, the user sees which one is meant.
    const DialogParent parent(*this);
    if (draft_->Modified()) raise();
    switch (draft_->AskToSave(surroundings_.user)) {
        case Answer::No:
            event->accept();
            break;
        case Answer::Yes:
            event->ignore();
            closes_ = true;
            QMetaObject::invokeMethod(
                this, [this] { Save(true); }, Qt::QueuedConnection);
            break;
        default:
            event->ignore();
    }
}

}  // namespace tarnbridge
