#include "simulator/HandsetContent.h"

namespace tarnbridge::simulator {

HandsetContent HandsetContent::Demo() {
    return Empty();
}

}  // namespace tarnbridge::simulator
