#include "platform/ftdi/libftdi_device.h"

#include <ftdi.h>

#include <algorithm>
#include <chrono>

namespace q {

namespace {
int status(int libftdiResult) { return libftdiResult < 0 ? FT_IO_ERROR : FT_OK; }

// Every FTDI device of the known products, in a fixed order.
template <class Visit>
void forEachDevice(ftdi_context* ctx, Visit visit) {
  for (int product : LibFtdiDevice::kProducts) {
    ftdi_device_list* list = nullptr;
    if (ftdi_usb_find_all(ctx, &list, LibFtdiDevice::kVendor, product) > 0)
      for (ftdi_device_list* d = list; d; d = d->next)
        if (!visit(d->dev)) {
          ftdi_list_free(&list);
          return;
        }
    ftdi_list_free(&list);
  }
}
}  // namespace

LibFtdiDevice::LibFtdiDevice() : ctx_(ftdi_new()) {
  if (ctx_) ftdi_set_interface(ctx_, INTERFACE_ANY);
}

LibFtdiDevice::~LibFtdiDevice() {
  if (!ctx_) return;
  close();
  ftdi_free(ctx_);
}

int LibFtdiDevice::countDevices(int& count) {
  count = 0;
  if (!ctx_) return FT_OK;
  forEachDevice(ctx_, [&](libusb_device*) {
    ++count;
    return true;
  });
  return FT_OK;
}

int LibFtdiDevice::open(int index) {
  if (!ctx_) return FT_DEVICE_NOT_FOUND;
  if (open_) close();
  bool found = false;
  int result = 0;
  int n = 0;
  forEachDevice(ctx_, [&](libusb_device* dev) {
    if (n++ != index) return true;
    found = true;
    result = ftdi_usb_open_dev(ctx_, dev);
    return false;
  });
  if (!found) return FT_DEVICE_NOT_FOUND;
  if (result < 0) return FT_DEVICE_NOT_OPENED;
  open_ = true;
  pending_.clear();
  return FT_OK;
}

int LibFtdiDevice::close() {
  if (!open_) return FT_INVALID_HANDLE;
  open_ = false;
  pending_.clear();
  return status(ftdi_usb_close(ctx_));
}

int LibFtdiDevice::resetDevice() {
  if (!open_) return FT_INVALID_HANDLE;
  return status(ftdi_usb_reset(ctx_));
}

int LibFtdiDevice::setDivisor(int divisor) {
  if (!open_) return FT_INVALID_HANDLE;
  if (divisor <= 0) return FT_INVALID_PARAMETER;
  return status(ftdi_set_baudrate(ctx_, 3000000 / divisor));
}

int LibFtdiDevice::setDataCharacteristics(int wordLength, int stopBits, int parity) {
  if (!open_) return FT_INVALID_HANDLE;
  wordLength_ = wordLength;
  stopBits_ = stopBits;
  parity_ = parity;
  return lineProperties(false);
}

int LibFtdiDevice::lineProperties(bool breakOn) {
  const ftdi_bits_type bits = wordLength_ == 7 ? BITS_7 : BITS_8;
  const ftdi_stopbits_type stop = stopBits_ == 2   ? STOP_BIT_2
                                  : stopBits_ == 1 ? STOP_BIT_15
                                                   : STOP_BIT_1;
  const ftdi_parity_type parity = parity_ >= 0 && parity_ <= 4 ? ftdi_parity_type(parity_) : NONE;
  return status(ftdi_set_line_property2(ctx_, bits, stop, parity, breakOn ? BREAK_ON : BREAK_OFF));
}

int LibFtdiDevice::setFlowControl(int mode, uint8_t xon, uint8_t xoff) {
  if (!open_) return FT_INVALID_HANDLE;
  switch (mode) {
    case 0x0100:
      return status(ftdi_setflowctrl(ctx_, SIO_RTS_CTS_HS));
    case 0x0200:
      return status(ftdi_setflowctrl(ctx_, SIO_DTR_DSR_HS));
    case 0x0400:
      return status(ftdi_setflowctrl_xonxoff(ctx_, xon, xoff));
    default:
      return status(ftdi_setflowctrl(ctx_, SIO_DISABLE_FLOW_CTRL));
  }
}

int LibFtdiDevice::clrRts() {
  if (!open_) return FT_INVALID_HANDLE;
  return status(ftdi_setrts(ctx_, 0));
}

int LibFtdiDevice::purge(int mask) {
  if (!open_) return FT_INVALID_HANDLE;
  int result = 0;
  if (mask & 1) {
    pending_.clear();
    result = std::min(result, ftdi_tciflush(ctx_));
  }
  if (mask & 2) result = std::min(result, ftdi_tcoflush(ctx_));
  return status(result);
}

int LibFtdiDevice::setBreakOn() { return open_ ? lineProperties(true) : FT_INVALID_HANDLE; }
int LibFtdiDevice::setBreakOff() { return open_ ? lineProperties(false) : FT_INVALID_HANDLE; }

int LibFtdiDevice::setLatencyTimer(int ms) {
  if (!open_) return FT_INVALID_HANDLE;
  return status(ftdi_set_latency_timer(ctx_, uint8_t(std::clamp(ms, 1, 255))));
}

int LibFtdiDevice::setTimeouts(int readMs, int writeMs) {
  if (!open_) return FT_INVALID_HANDLE;
  readTimeoutMs_ = std::max(0, readMs);
  // One bulk transfer comes back as soon as the chip's latency timer
  // expires; the read timeout is kept by the loop in read().
  ctx_->usb_read_timeout = std::max(1, std::min(readTimeoutMs_, 50));
  ctx_->usb_write_timeout = writeMs > 0 ? writeMs : 5000;
  return FT_OK;
}

int LibFtdiDevice::fillPending() {
  uint8_t chunk[4096];
  const int n = ftdi_read_data(ctx_, chunk, int(sizeof chunk));
  if (n > 0) pending_.insert(pending_.end(), chunk, chunk + n);
  return n;
}

int LibFtdiDevice::getQueueStatus(int& bytes) {
  bytes = 0;
  if (!open_) return FT_INVALID_HANDLE;
  if (fillPending() < 0) return FT_IO_ERROR;
  bytes = int(pending_.size());
  return FT_OK;
}

int LibFtdiDevice::read(uint8_t* buf, int size, int& got) {
  got = 0;
  if (!open_) return FT_INVALID_HANDLE;
  const auto deadline =
      std::chrono::steady_clock::now() + std::chrono::milliseconds(readTimeoutMs_);
  for (;;) {
    const int take = std::min<int>(size - got, int(pending_.size()));
    std::copy_n(pending_.begin(), take, buf + got);
    pending_.erase(pending_.begin(), pending_.begin() + take);
    got += take;
    if (got == size || std::chrono::steady_clock::now() >= deadline) return FT_OK;
    if (fillPending() < 0) return FT_IO_ERROR;
  }
}

int LibFtdiDevice::write(const uint8_t* buf, int size, int& written) {
  written = 0;
  if (!open_) return FT_INVALID_HANDLE;
  const int n = ftdi_write_data(ctx_, buf, size);
  if (n < 0) return FT_IO_ERROR;
  written = n;
  return n == size ? FT_OK : FT_IO_ERROR;
}

}  // namespace q
