#include "engine/interfaces/serial_link.h"

namespace q {

int SerialLink::open(int index) {
  if (open_) return FT_OK;
  if (index != 0 || path_.empty() || !port_->open(path_)) return FT_DEVICE_NOT_FOUND;
  open_ = true;
  return FT_OK;
}

int SerialLink::close() {
  if (!open_) return FT_INVALID_HANDLE;
  port_->close();
  open_ = false;
  return FT_OK;
}

int SerialLink::purge(int mask) {
  if (!open_) return FT_INVALID_HANDLE;
  bool ok = true;
  if (mask & 1) ok = port_->flushInput() && ok;
  if (mask & 2) ok = port_->flushOutput() && ok;
  return ok ? FT_OK : FT_IO_ERROR;
}

int SerialLink::setTimeouts(int readMs, int) {
  readTimeoutMs_ = readMs;
  return state();
}

int SerialLink::getQueueStatus(int& bytes) {
  bytes = 0;
  if (!open_) return FT_INVALID_HANDLE;
  const int n = port_->available();
  if (n < 0) return FT_IO_ERROR;
  bytes = n;
  return FT_OK;
}

int SerialLink::read(uint8_t* buf, int size, int& got) {
  got = 0;
  if (!open_) return FT_INVALID_HANDLE;
  const int n = port_->read(buf, size, readTimeoutMs_);
  if (n < 0) return FT_IO_ERROR;
  got = n;
  return FT_OK;
}

int SerialLink::write(const uint8_t* buf, int size, int& written) {
  written = 0;
  if (!open_) return FT_INVALID_HANDLE;
  if (!port_->write(buf, size)) return FT_IO_ERROR;
  written = size;
  return FT_OK;
}

}  // namespace q
