#include "ui/messages/CSmsToolbarView.h"

#include "ui/messages/CSmsFormView.h"

namespace tarnbridge {

CSmsToolbarView::CSmsToolbarView(CSmsFormView&) {}

}  // namespace tarnbridge
