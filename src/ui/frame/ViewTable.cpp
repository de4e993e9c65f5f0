#include "ui/frame/ViewTable.h"

#include "core/base/PhoneModelInfo.h"
#include "ui/frame/FormView.h"
#include "ui/messages/CSmsFormView.h"
#include "ui/messages/CSmsToolbarView.h"
#include "ui/settings/CSettingsFormView.h"
#include "ui/settings/CSettingsToolbarView.h"

namespace tarnbridge {
namespace {

constexpr int messagesView = 1;

bool Always(const PhoneModelInfo&) {
    return true;
}

template <typename Form>
FormView* MakeForm(CTarnbridgeDoc& document, QWidget* parent) {
    return new Form(document, parent);
}

template <typename Toolbar, typename Form>
QToolBar* MakeToolbar(FormView& form) {
    return new Toolbar(static_cast<Form&>(form));
}

// The numbers of those to come: 0 phonebook, 3 images, 4 melodies, 5 MMS (hasMms), 6 file manager
// (hasFileManager).
constexpr ViewEntry views[] = {
    {messagesView, Word::FeatureMessages, "messages", Always, MakeForm<CSmsFormView>,
     MakeToolbar<CSmsToolbarView, CSmsFormView>},
    {2, Word::FeatureSettings, "settings", Always, MakeForm<CSettingsFormView>,
     MakeToolbar<CSettingsToolbarView, CSettingsFormView>},
};

}  // namespace

std::span<const ViewEntry> Views() {
    return views;
}

const ViewEntry& ViewToOpen(int number, const PhoneModelInfo& model) {
    const ViewEntry* messages = nullptr;
    for (const ViewEntry& view : views) {
        if (view.number == number && view.offered(model)) return view;
        if (view.number == messagesView) messages = &view;
    }
    return *messages;
}

}  // namespace tarnbridge
