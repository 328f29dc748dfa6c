#include "engine/interfaces/interface_layer.h"

namespace q {

void InterfaceLayer::startDMX() {}
void InterfaceLayer::stopDMX() {}
void InterfaceLayer::sendFrame() {}

}  // namespace q
