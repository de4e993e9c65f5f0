#include "ui/messages/ObjectCommands.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include "messaging/ems/EmsObjects.h"
#include "ui/Icons.h"
#include "ui/QtText.h"
#include "ui/messages/Command.h"
#include "ui/messages/MessageEdit.h"
#include "ui/messages/ObjectFiles.h"
#include "ui/messages/ObjectLook.h"

namespace tarnbridge {

ObjectCommands::ObjectCommands(MessageEdit& text, UserInteraction& user)
    : QObject(&text), text_(text), user_(user) {
    picture_ = MakeCommand(this, {"insertPicture", Word::InsertPicture, "insert-picture"});
    connect(picture_, &QAction::triggered, this, [this] {
        InsertFile(QWords(Word::InsertPicture), {Words(Word::PictureFiles), {"*.wbmp", "*.wbm", "*.ems"}},
                   ReadPictureFile);
    });

    sounds_ = MakeMenu("insertSound", Word::InsertSound, "insert-sound");
    const auto add = [this](QMenu& menu, const MessageObject& object) {
        QAction* const action = menu.addAction(DescriptionOfObject(object));
        action->setObjectName(QStringLiteral("%1%2").arg(menu.objectName()).arg(object.number));
        connect(action, &QAction::triggered, this, [this, object] { text_.InsertObject(object); });
    };
    for (int number = 0; number < mostPredefinedSounds; ++number)
        add(*sounds_, MessageObject::PredefinedSound(number));
    AddFile(*sounds_, "insertMelody", {Words(Word::MelodyFiles), {"*.imy"}}, ReadMelodyFile);

    animations_ = MakeMenu("insertAnimation", Word::InsertAnimation, "insert-animation");
    for (int number = 0; number < mostPredefinedAnimations; ++number)
        add(*animations_, MessageObject::PredefinedAnimation(number));
    AddFile(*animations_, "insertAnimationFile", {Words(Word::AnimationFiles), {"*.gif"}}, ReadAnimationFile);
}

QMenu* ObjectCommands::MakeMenu(const char* name, Word title, const char* icon) {
    auto* const menu = new QMenu(QWords(title), &text_);
    menu->setObjectName(QLatin1String(name));
    menu->setIcon(ThemedIcon(QLatin1String(icon)));
    menu->menuAction()->setToolTip(PlainWords(title));
    return menu;
}

void ObjectCommands::AddFile(QMenu& menu, const char* name, const FileFilter& filter, Reader read) {
    menu.addSeparator();
    QAction* const file = MakeCommand(this, {name, Word::InsertFromFile, "folder"});
    menu.addAction(file);
    connect(file, &QAction::triggered, this,
            [this, title = menu.title(), filter, read] { InsertFile(title, filter, read); });
}

void ObjectCommands::InsertFile(const QString& title, const FileFilter& filter, Reader read) {
    const auto chosen = user_.ChooseFiles({.title = ToText(title), .filters = {filter}});
    if (chosen.empty()) return;
    const ObjectFile file = read(chosen.front());
    if (file.object)
        text_.InsertObject(*file.object);
    else
        Q_EMIT refused(file.fault);
}

void ObjectCommands::AddTo(QMenu& menu) const {
    menu.addAction(picture_);
    menu.addMenu(sounds_);
    menu.addMenu(animations_);
}

void ObjectCommands::AddTo(QToolBar& bar) const {
    bar.addAction(picture_);
    for (QMenu* const menu : {sounds_, animations_}) {
        bar.addAction(menu->menuAction());
        auto* const button = qobject_cast<QToolButton*>(bar.widgetForAction(menu->menuAction()));
        button->setPopupMode(QToolButton::InstantPopup);
    }
}

}  // namespace tarnbridge
