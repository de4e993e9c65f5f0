#include "ui/messages/CSmsFormView.h"

#include <QAction>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "core/app/CTarnbridgeDoc.h"
#include "core/app/FrameMessages.h"
#include "ui/EmptyHint.h"
#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/messages/MessageListModel.h"
#include "ui/messages/MessageListView.h"
#include "ui/messages/MessageMenus.h"
#include "ui/messages/MessageOperations.h"
#include "ui/messages/MessagePrinting.h"
#include "ui/messages/MessageReader.h"
#include "ui/messages/MessageTreeModel.h"
#include "ui/messages/NoteLine.h"
#include "ui/messages/StoredLayout.h"

namespace tarnbridge {
namespace {

constexpr int defaultSplitter[] = {190, 600, 280, 220};
constexpr int defaultColumns[] = {10, 24, 26, 40};  // in characters

}  // namespace

CSmsFormView::CSmsFormView(CTarnbridgeDoc& document, QWidget* parent)
    : FormView(document, parent),
      operations_(new MessageOperations(document, this)),
      commands_(new MessageCommands(this)),
      treeModel_(new MessageTreeModel(operations_->Tree(), operations_->Folders(), this)),
      listModel_(new MessageListModel(this)),
      splitter_(new QSplitter),
      messageSplitter_(new QSplitter(Qt::Vertical)),
      tree_(new QTreeView),
      find_(new QLineEdit),
      age_(new NoteLine),
      stack_(new QStackedWidget),
      list_(new MessageListView),
      reader_(new MessageReader),
      editors_(document, *operations_, this) {
    MakeTree();
    MakeList();
    find_->setObjectName(QStringLiteral("find"));
    find_->setPlaceholderText(QWords(Word::FindInMessages));
    find_->setAccessibleName(QWords(Word::FindInMessages));
    find_->setClearButtonEnabled(true);
    find_->addAction(ThemedIcon(QStringLiteral("find")), QLineEdit::LeadingPosition);

    messageSplitter_->setObjectName(QStringLiteral("messageSplitter"));
    messageSplitter_->addWidget(list_);
    messageSplitter_->addWidget(reader_);
    stack_->addWidget(messageSplitter_);
    auto* const right = new QWidget;
    auto* const column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(find_);
    column->addWidget(age_);
    column->addWidget(stack_, 1);
    splitter_->setObjectName(QStringLiteral("splitter"));
    splitter_->addWidget(tree_);
    splitter_->addWidget(right);
    splitter_->setStretchFactor(1, 1);
    for (QSplitter* const splitter : {splitter_, messageSplitter_})
        splitter->setChildrenCollapsible(false);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter_);
    setFocusProxy(tree_);

    MakeMenus();
    age_->setObjectName(QStringLiteral("mirrorNote"));
    age_->Offer(commands_->Get(MessageCommands::ReadMessages));
    RestoreState();
    Connect();
    OpenFolder();
}

CSmsFormView::~CSmsFormView() {
    SaveState();
}

void CSmsFormView::MakeTree() {
    tree_->setObjectName(QStringLiteral("folders"));
    tree_->setAccessibleName(QWords(Word::FoldersName));
    tree_->setModel(treeModel_);
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    tree_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree_->setContextMenuPolicy(Qt::CustomContextMenu);
    tree_->setDragDropMode(QAbstractItemView::DragDrop);
    tree_->setDefaultDropAction(Qt::MoveAction);
    // Things are dropped on folders, never between them.
    tree_->setDragDropOverwriteMode(true);
    tree_->setAutoExpandDelay(600);
    tree_->expandToDepth(1);
}

void CSmsFormView::MakeList() {
    list_->setObjectName(QStringLiteral("messages"));
    list_->setAccessibleName(QWords(Word::FeatureMessages));
    list_->setModel(listModel_);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    list_->setSortingEnabled(true);
}

void CSmsFormView::MakeMenus() {
    using C = MessageCommands;
    const MessageMenus menus = MakeMessageMenus(*commands_, this);
    menus_ = menus.inBar;
    const auto pop = [](QAbstractItemView* view, QMenu* menu) {
        connect(view, &QWidget::customContextMenuRequested, menu,
                [view, menu](const QPoint& place) { menu->popup(view->viewport()->mapToGlobal(place)); });
    };
    pop(list_, menus.ofList);
    pop(tree_, menus.ofTree);

    // The keys of folders work among the folders, those of messages everywhere else; keys that texts know too
    // go to the text that has the focus.
    for (const C::Command command : {C::RenameFolder, C::DeleteFolder}) {
        commands_->Get(command)->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        tree_->addAction(commands_->Get(command));
    }
    for (const C::Command command : {C::DeleteMessages, C::SelectAllMessages}) {
        commands_->Get(command)->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        stack_->addAction(commands_->Get(command));
    }
}

void CSmsFormView::Connect() {
    using C = MessageCommands;
    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        if (!refreshing_) OpenFolder();
    });
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!refreshing_) ShowSelected();
    });
    connect(list_, &QTreeView::activated, commands_->Get(C::OpenMessage), &QAction::trigger);
    connect(
        treeModel_, &MessageTreeModel::messagesDropped, this,
        [this](MessageFolder* from, const std::vector<SmsRecord*>& records, MessageFolder* to, bool move) {
            operations_->Transfer({from, records}, *to, move);
        });
    connect(
        treeModel_, &MessageTreeModel::folderDropped, this,
        [this](MessageFolder* folder, MessageFolder* under) { operations_->MoveFolder(*folder, *under); });
    connect(operations_, &MessageOperations::changed, this, &CSmsFormView::Refresh);
    connect(operations_, &MessageOperations::busyChanged, this, &CSmsFormView::UpdateCommands);
    // What follows on the end of a task or on a message that is safe begins first.
    connect(operations_, &MessageOperations::busyChanged, this, &CSmsFormView::GoOnLeaving,
            Qt::QueuedConnection);
    connect(&editors_, &MessageEditors::saved, this, &CSmsFormView::GoOnLeaving, Qt::QueuedConnection);
    connect(&editors_, &MessageEditors::stays, this, [this] { leaving_ = false; });
    connect(find_, &QLineEdit::textChanged, this, &CSmsFormView::Find);
    connect(find_, &QLineEdit::returnPressed, list_, qOverload<>(&QWidget::setFocus));
    auto* const escape = new QShortcut(Qt::Key_Escape, find_);
    escape->setContext(Qt::WidgetShortcut);
    connect(escape, &QShortcut::activated, this, [this] {
        find_->clear();
        list_->setFocus();
    });

    const auto on = [this](C::Command command, auto use) {
        connect(commands_->Get(command), &QAction::triggered, this, use);
    };
    on(C::NewMessage, [this] { editors_.New(); });
    on(C::OpenMessage, [this] {
        if (TheSelected()) editors_.Open(Selected());
    });
    on(C::ReplyMessage, [this] {
        if (const SmsRecord* const record = TheSelected()) editors_.Reply(*record);
    });
    on(C::ForwardMessage, [this] {
        if (const SmsRecord* const record = TheSelected()) editors_.Forward(*record);
    });
    on(C::SendMessage, [this] { operations_->Send(Selected()); });
    on(C::SendAllMessages, [this] { operations_->SendAll(); });
    on(C::ReadMessages, [this] { operations_->Read(); });
    on(C::SaveText, [this] { operations_->Export(Selected()); });
    on(C::ImportMessages, [this] { operations_->Import(*CurrentFolder()); });
    on(C::ExportMessages, [this] { operations_->Export(AllInFolder()); });
    on(C::PrintMessage, [this] { AskAndPrint(ToPrint(), window()); });
    on(C::PrintPreview, [this] { ShowPrintPreview(ToPrint(), window()); });
    on(C::CutMessages, [this] { operations_->Remember(Selected(), true); });
    on(C::CopyMessages, [this] { operations_->Remember(Selected(), false); });
    on(C::PasteMessages, [this] { operations_->Paste(*CurrentFolder()); });
    on(C::MoveMessages, [this] { operations_->TransferAsking(Selected(), true); });
    on(C::CopyMessagesTo, [this] { operations_->TransferAsking(Selected(), false); });
    on(C::DeleteMessages, [this] { operations_->Delete(Selected()); });
    on(C::SelectAllMessages, [this] { list_->selectAll(); });
    on(C::FindMessages, [this] {
        find_->setFocus(Qt::ShortcutFocusReason);
        find_->selectAll();
    });
    on(C::MakeFolder, &CSmsFormView::MakeFolder);
    on(C::RenameFolder, [this] { tree_->edit(tree_->currentIndex()); });
    on(C::DeleteFolder, [this] { operations_->RemoveFolder(*CurrentFolder()); });
    on(C::CleanTrash, [this] { operations_->CleanTrash(); });
}

void CSmsFormView::RestoreState() {
    const Settings& settings = Document().Preferences();
    const auto sizes = SizesOr(settings.GetList(SettingIndex::SmsSplitter), defaultSplitter);
    splitter_->setSizes({sizes[0], sizes[1]});
    messageSplitter_->setSizes({sizes[2], sizes[3]});
    int characters[MessageListModel::ColumnCount];
    for (size_t column = 0; column < std::size(characters); ++column)
        characters[column] = defaultColumns[column] * fontMetrics().averageCharWidth();
    const auto columns = SizesOr(settings.GetList(SettingIndex::SmsColumns), characters);
    // The last one takes the room that is left.
    for (int column = 0; column < MessageListModel::TextColumn; ++column)
        list_->header()->resizeSection(column, columns[static_cast<size_t>(column)]);

    auto sorting = settings.GetList(SettingIndex::SmsSorting);
    if (sorting.size() != 2 || sorting[0] < 0 || sorting[0] >= MessageListModel::ColumnCount)
        sorting = {MessageListModel::TimeColumn, 1};
    list_->sortByColumn(sorting[0], sorting[1] == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);

    const QModelIndex folder = IndexAt(*treeModel_, settings.GetList(SettingIndex::SmsFolder));
    tree_->setCurrentIndex(
        folder.isValid() ? folder : treeModel_->IndexOf(&operations_->Tree().OnHandset(inboxPlace)));
}

/// Sizes of a view that was never on the screen mean nothing.
void CSmsFormView::SaveState() {
    Settings& settings = Document().Preferences();
    settings.SetList(SettingIndex::SmsFolder, PathOf(tree_->currentIndex()));
    settings.SetList(SettingIndex::SmsSorting,
                     {list_->header()->sortIndicatorSection(),
                      list_->header()->sortIndicatorOrder() == Qt::AscendingOrder ? 0 : 1});
    if (!wasShown_) return;
    const QList<int> outer = splitter_->sizes();
    const QList<int> inner = messageSplitter_->sizes();
    settings.SetList(SettingIndex::SmsSplitter, {outer[0], outer[1], inner[0], inner[1]});
    std::vector<int32_t> columns;
    for (int column = 0; column < MessageListModel::ColumnCount; ++column)
        columns.push_back(list_->header()->sectionSize(column));
    settings.SetList(SettingIndex::SmsColumns, columns);
}

void CSmsFormView::showEvent(QShowEvent* event) {
    wasShown_ = true;
    FormView::showEvent(event);
}

void CSmsFormView::Receive(Message& message) {
    if (message.id == HandsetConnected || message.id == HandsetDisconnected) {
        UpdateCommands();
        ShowHint();
        ShowAge();
    }
}

bool CSmsFormView::MayLeave() {
    operations_->Cancel();
    if (!operations_->IsBusy() && editors_.CloseAll()) return true;
    leaving_ = operations_->IsBusy() || editors_.IsSaving();
    return false;
}

void CSmsFormView::GoOnLeaving() {
    if (!leaving_ || operations_->IsBusy() || editors_.IsSaving()) return;
    leaving_ = false;
    Q_EMIT readyToLeave();
}

MessageFolder* CSmsFormView::CurrentFolder() const {
    return treeModel_->FolderAt(tree_->currentIndex());
}

MessageSelection CSmsFormView::Selected() const {
    MessageSelection selection{CurrentFolder()};
    QModelIndexList rows = list_->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    for (const QModelIndex& row : rows)
        selection.records.push_back(listModel_->RecordAt(row.row()));
    return selection;
}

MessageSelection CSmsFormView::AllInFolder() const {
    MessageSelection selection{CurrentFolder()};
    const std::lock_guard guard(selection.folder->lock);
    for (const auto& record : selection.folder->records)
        selection.records.push_back(record.get());
    return selection;
}

/// Null unless exactly one is selected and still there.
const SmsRecord* CSmsFormView::TheSelected() const {
    const MessageSelection selection = Selected();
    if (selection.records.size() != 1 || !Holds(*selection.folder, selection.records.front())) return nullptr;
    return selection.records.front();
}

/// Of a folder of the user's, those around it decide.
bool CSmsFormView::Receives(const MessageFolder& folder) const {
    const MessageTree tree = operations_->Tree();
    return &folder == &tree.OnHandset(inboxPlace) || &folder == &tree.OnPc(inboxPlace);
}

void CSmsFormView::OpenFolder() {
    MessageFolder* const folder = CurrentFolder();
    const bool shown = folder && operations_->Tree().HoldsMessages(*folder);
    refreshing_ = true;
    listModel_->Open(shown ? folder : nullptr, shown && Receives(*folder));
    refreshing_ = false;
    ShowMessages();
}

/// What was selected stays so where it is still there; otherwise the next row is where the keys go on.
void CSmsFormView::Refresh() {
    const std::vector<SmsRecord*> selected = Selected().records;
    const int row = list_->currentIndex().row();
    refreshing_ = true;
    const MessageFolder* const before = listModel_->Folder();
    treeModel_->Refresh();
    refreshing_ = false;
    if (CurrentFolder() != before) {
        OpenFolder();
        return;
    }
    refreshing_ = true;
    listModel_->Refresh();
    Select(selected);
    if (!list_->currentIndex().isValid() && row >= 0) {
        list_->selectionModel()->setCurrentIndex(
            listModel_->index(std::min(row, listModel_->rowCount() - 1), 0), QItemSelectionModel::NoUpdate);
    }
    refreshing_ = false;
    ShowMessages();
}

void CSmsFormView::Select(const std::vector<SmsRecord*>& records) {
    QItemSelection selection;
    for (const int row : listModel_->RowsOf(records))
        selection.select(listModel_->index(row, 0), listModel_->index(row, 0));
    if (selection.isEmpty()) return;
    list_->selectionModel()->setCurrentIndex(selection.front().topLeft(), QItemSelectionModel::NoUpdate);
    list_->selectionModel()->select(selection,
                                    QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void CSmsFormView::Find(const QString& text) {
    const std::vector<SmsRecord*> selected = Selected().records;
    refreshing_ = true;
    listModel_->SetFilter(text);
    Select(selected);
    refreshing_ = false;
    ShowMessages();
}

void CSmsFormView::ShowMessages() {
    ShowHint();
    ShowAge();
    ShowSelected();
}

/// What stands in the folders of the handset is a picture, which may be of another time or another handset.
void CSmsFormView::ShowAge() {
    const MessageFolder* const folder = CurrentFolder();
    const MirrorState& mirror = Document().Mirror();
    const unsigned session = Document().Link().SessionNumber();
    const bool shown = folder && operations_->Tree().IsOnHandset(*folder);
    listModel_->SetOld(shown && mirror.IsOld(session));
    const std::u16string words = shown ? mirror.Words(session, Document().Time().Local()) : std::u16string();
    if (words.empty())
        age_->Clear();
    else
        age_->Show(ToQString(words));
}

void CSmsFormView::ShowHint() {
    if (hint_) hint_->deleteLater();
    hint_ = nullptr;
    MessageFolder* const folder = CurrentFolder();
    if (listModel_->rowCount() == 0) {
        const bool searched = listModel_->IsFiltered() && listModel_->CountInFolder() > 0;
        const bool onHandset = folder && operations_->Tree().IsOnHandset(*folder);
        const bool holds = folder && operations_->Tree().HoldsMessages(*folder);
        if (searched) {
            hint_ = new EmptyHint(QStringLiteral("find"), QWords(Word::NothingFoundTitle),
                                  QWords(Word::NothingFoundHint));
        } else if (onHandset && Document().Watch().IsConnected()) {
            hint_ = new EmptyHint(QStringLiteral("handset"), QWords(Word::HandsetFolderEmptyTitle),
                                  QWords(Word::HandsetFolderEmptyHint));
            hint_->Offer(commands_->Get(MessageCommands::ReadMessages));
        } else if (onHandset) {
            hint_ = new EmptyHint(QStringLiteral("disconnected"), QWords(Word::HandsetAwayTitle),
                                  QWords(Word::HandsetAwayHint));
        } else {
            hint_ = new EmptyHint(QStringLiteral("messages"),
                                  QWords(holds ? Word::FolderEmptyTitle : Word::ChooseFolderTitle),
                                  QWords(holds ? Word::FolderEmptyHint : Word::ChooseFolderHint));
        }
        hint_->setObjectName(QStringLiteral("hint"));
        stack_->addWidget(hint_);
        stack_->setCurrentWidget(hint_);
    } else {
        stack_->setCurrentWidget(messageSplitter_);
    }
}

void CSmsFormView::ShowSelected() {
    const SmsRecord* const record = TheSelected();
    if (!record) reader_->Clear(list_->selectionModel()->selectedRows().size());
    if (record) {
        reader_->Show(*record, tree_->currentIndex().data(Qt::EditRole).toString());
        if (operations_->MarkRead(Selected())) {
            listModel_->ShowAsRead(list_->selectionModel()->selectedRows().front().row());
            refreshing_ = true;
            treeModel_->Refresh();
            refreshing_ = false;
        }
    }
    UpdateCommands();
    Q_EMIT statusChanged(Status());
}

QString CSmsFormView::Status() const {
    const MessageFolder* const folder = CurrentFolder();
    if (!folder || !operations_->Tree().HoldsMessages(*folder)) return {};
    const auto all = static_cast<int64_t>(listModel_->CountInFolder());
    const auto shown = static_cast<int64_t>(listModel_->rowCount());
    const auto selected = static_cast<int64_t>(list_->selectionModel()->selectedRows().size());
    QString words = listModel_->IsFiltered() ? QWords(Word::MessagesFound, {shown, all})
                                             : QWords(Word::MessagesCount, {all});
    if (selected > 0) words += QStringLiteral(", ") + QWords(Word::MessagesSelected, {selected});
    return words;
}

void CSmsFormView::UpdateCommands() {
    const MessageTree tree = operations_->Tree();
    const MessageFolder* const folder = CurrentFolder();
    const MessageFolder& trash = tree.OnPc(messageTrashPlace);
    const auto isEmpty = [](const MessageFolder& other) {
        const std::lock_guard guard(other.lock);
        return other.records.empty() && other.children.empty();
    };
    MessageSituation situation;
    situation.busy = operations_->IsBusy();
    situation.connected = Document().Watch().IsConnected();
    const QModelIndexList selected = list_->selectionModel()->selectedRows();
    situation.selected = static_cast<size_t>(selected.size());
    situation.canSend = std::any_of(selected.begin(), selected.end(), [this](const QModelIndex& row) {
        return listModel_->IsSendable(row.row());
    });
    situation.inFolder = listModel_->CountInFolder();
    situation.canPaste = operations_->CanPaste();
    situation.trashHasContent = !isEmpty(trash);
    situation.outboxHasMessages = !isEmpty(tree.OnPc(outboxPlace));
    if (folder) {
        situation.holdsMessages = tree.HoldsMessages(*folder);
        situation.mayMakeFolder = MessageFolders::MayMakeFolder(*folder);
        situation.mayChangeFolder = MessageFolders::MayChange(*folder);
        situation.isTrash = folder == &trash;
    }
    commands_->Update(situation);
}

void CSmsFormView::MakeFolder() {
    MessageFolder* const made = operations_->MakeFolder(*CurrentFolder());
    if (!made) return;
    const QModelIndex index = treeModel_->IndexOf(made);
    tree_->setCurrentIndex(index);
    tree_->edit(index);
}

std::vector<PrintedMessage> CSmsFormView::ToPrint() const {
    const MessageSelection selection = Selected();
    const QString folder = tree_->currentIndex().data(Qt::EditRole).toString();
    std::vector<PrintedMessage> messages;
    for (const SmsRecord* const record : selection.records) {
        if (Holds(*selection.folder, record)) messages.push_back({*record, folder});
    }
    return messages;
}

}  // namespace tarnbridge
