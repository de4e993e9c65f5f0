#include "ui/dialogs/HelpWindow.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "core/app/CTarnbridgeDoc.h"
#include "core/app/Languages.h"
#include "platform/ProgramFolder.h"
#include "ui/QtText.h"

namespace tarnbridge {

void HelpWindow::Show(CTarnbridgeDoc& document, QWidget* window) {
    auto* help = window->findChild<HelpWindow*>();
    if (!help) {
        auto file = FindData(HelpFileName(document.Preferences().GetNumber(SettingIndex::Language)));
        if (!file) file = FindData(HelpFileName(builtInLanguage));
        if (!file) {
            document.User().Tell(Words(Word::HelpMissing));
            return;
        }
        help = new HelpWindow(PathToQString(*file), window);
    }
    help->show();
    help->raise();
    help->activateWindow();
}

HelpWindow::HelpWindow(const QString& file, QWidget* window) : QDialog(window) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("help"));
    setWindowTitle(QWords(Word::HelpTitle));
    auto* const page = new QTextBrowser;
    page->setSource(QUrl::fromLocalFile(file));
    page->setOpenExternalLinks(true);
    page->setAccessibleName(QWords(Word::HelpTitle));

    auto* const buttons = new QDialogButtonBox;
    QPushButton* const contents =
        buttons->addButton(QWords(Word::CommandContents), QDialogButtonBox::ActionRole);
    QPushButton* const back = buttons->addButton(QWords(Word::CommandBack), QDialogButtonBox::ActionRole);
    buttons->addButton(QWords(Word::CommandClose), QDialogButtonBox::RejectRole)->setDefault(true);
    back->setEnabled(false);
    connect(contents, &QPushButton::clicked, page, &QTextBrowser::home);
    connect(back, &QPushButton::clicked, page, &QTextBrowser::backward);
    connect(page, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(page, 1);
    layout->addWidget(buttons);
    resize(640, 560);
}

}  // namespace tarnbridge
