#include "ui/messages/CSmsFormView.h"

#include <QVBoxLayout>

#include "ui/EmptyHint.h"
#include "ui/QtText.h"

namespace tarnbridge {

CSmsFormView::CSmsFormView(CTarnbridgeDoc& document, QWidget* parent) : FormView(document, parent) {
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(new EmptyHint(QStringLiteral("messages"), QWords(Word::MessagesPlaceTitle),
                                    QWords(Word::MessagesPlaceHint)));
}

}  // namespace tarnbridge
