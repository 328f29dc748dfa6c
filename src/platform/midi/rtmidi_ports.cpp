#include "platform/midi/rtmidi_ports.h"

#include <RtMidi.h>
#include <alsa/asoundlib.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <sstream>

namespace q {

namespace {
constexpr const char* kClientName = "Quintara";
constexpr const char* kVirtualPortName = "Quintara (other programs connect here)";

// The ALSA library writes its own complaints (no /dev/snd/seq, no sound card)
// straight to standard error. The console says what is missing itself, once
// and in its own words, so the library's lines are dropped.
void quietAlsa(const char*, int, const char*, int, const char*, ...) {}

// RtMidi reports through exceptions; a port that cannot be built is no port.
// While it is built, RtMidi prints its failure on std::cerr before it throws:
// that text goes nowhere, the caller tells the operator instead.
template <class T>
std::unique_ptr<T> makeMidi() {
  snd_lib_error_set_handler(quietAlsa);
  std::ostringstream swallowed;
  std::streambuf* const cerr = std::cerr.rdbuf(swallowed.rdbuf());
  std::unique_ptr<T> midi;
  try {
    midi = std::make_unique<T>(RtMidi::UNSPECIFIED, kClientName);
  } catch (const std::exception&) {
  }
  std::cerr.rdbuf(cerr);
  return midi;
}

template <class T>
int portCount(T* midi) {
  if (!midi) return 0;
  try {
    return int(midi->getPortCount());
  } catch (const std::exception&) {
    return 0;
  }
}

template <class T>
std::string portName(T* midi, int device) {
  if (!midi || device < 0) return {};
  try {
    return midi->getPortName(unsigned(device));
  } catch (const std::exception&) {
    return {};
  }
}

int clampData(int b) { return std::clamp(b, 0, 127); }
}  // namespace

// ---- input ----

RtMidiInPort::RtMidiInPort() : midi_(makeMidi<RtMidiIn>()) {
  wakeFd_ = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  if (!midi_) return;
  midi_->setCallback(
      [](double, std::vector<unsigned char>* m, void* self) {
        if (m) static_cast<RtMidiInPort*>(self)->received(m->data(), m->size());
      },
      this);
  midi_->setErrorCallback(
      [](RtMidiError::Type type, const std::string& text, void* self) {
        // Warnings are passing news; the console shows only failures.
        const bool warning = type == RtMidiError::WARNING || type == RtMidiError::DEBUG_WARNING;
        static_cast<RtMidiInPort*>(self)->reportError(warning ? 0 : 100 + int(type), text);
      },
      this);
}

RtMidiInPort::~RtMidiInPort() {
  close();
  midi_.reset();
  if (wakeFd_ >= 0) ::close(wakeFd_);
}

int RtMidiInPort::deviceCount() { return portCount(midi_.get()); }

std::string RtMidiInPort::deviceName(int device) { return portName(midi_.get(), device); }

// A port that will not open stays closed without a word: the caller looks at isOpen().
void RtMidiInPort::open() {
  if (!midi_ || open_ || device_ < 0 || device_ >= deviceCount()) return;
  opening_ = true;
  try {
    midi_->openPort(unsigned(device_), "Quintara In");
    open_ = midi_->isPortOpen();
  } catch (const std::exception&) {
    open_ = false;
  }
  opening_ = false;
}

void RtMidiInPort::close() {
  receiving_ = false;
  if (!midi_ || !open_) return;
  try {
    midi_->closePort();
  } catch (const std::exception&) {
  }
  open_ = false;
}

void RtMidiInPort::enableLongMessages() {
  if (midi_) midi_->ignoreTypes(false, true, true);
}

void RtMidiInPort::received(const unsigned char* bytes, size_t size) {
  if (!receiving_ || size == 0) return;
  MidiMessage m{bytes[0], size > 1 ? bytes[1] : 0, size > 2 ? bytes[2] : 0};
  if (bytes[0] == 0xF0) {
    // A dump of a synthesiser's memory is no show control: dropped here.
    if (size > MidiMessage::kSysexLimit) return;
    m.sysex.assign(bytes, bytes + size);
  }
  {
    std::lock_guard lock(mutex_);
    if (queue_.size() >= kQueueLimit) return;
    queue_.push_back(m);
  }
  wake();
}

void RtMidiInPort::reportError(int code, std::string text) {
  if (opening_) return;
  {
    std::lock_guard lock(mutex_);
    errors_.emplace_back(code, std::move(text));
  }
  wake();
}

int RtMidiInPort::waiting() {
  std::lock_guard lock(mutex_);
  return int(queue_.size());
}

MidiMessage RtMidiInPort::oldest() {
  std::lock_guard lock(mutex_);
  return queue_.empty() ? MidiMessage{} : queue_.front();
}

void RtMidiInPort::removeOldest() {
  std::lock_guard lock(mutex_);
  if (!queue_.empty()) queue_.pop_front();
}

void RtMidiInPort::wake() {
  if (wakeFd_ < 0) return;
  const uint64_t one = 1;
  [[maybe_unused]] ssize_t n = ::write(wakeFd_, &one, sizeof one);
}

void RtMidiInPort::clearWake() {
  if (wakeFd_ < 0) return;
  uint64_t count = 0;
  [[maybe_unused]] ssize_t n = ::read(wakeFd_, &count, sizeof count);
}

void RtMidiInPort::pump() {
  clearWake();
  std::vector<std::pair<int, std::string>> errors;
  {
    std::lock_guard lock(mutex_);
    errors.swap(errors_);
  }
  for (auto& [code, text] : errors)
    if (onError) onError(code, text);
  if (waiting() > 0 && onArrived) onArrived();
}

// ---- output ----

RtMidiOutPort::RtMidiOutPort() : midi_(makeMidi<RtMidiOut>()) {
  if (midi_) midi_->setErrorCallback([](RtMidiError::Type, const std::string&, void*) {}, nullptr);
}

RtMidiOutPort::~RtMidiOutPort() { close(); }

int RtMidiOutPort::deviceCount() { return portCount(midi_.get()); }

std::string RtMidiOutPort::deviceName(int device) {
  if (device == -1) return kVirtualPortName;
  return portName(midi_.get(), device);
}

void RtMidiOutPort::open() {
  if (!midi_ || open_) return;
  try {
    if (device_ == -1)
      midi_->openVirtualPort(kClientName);
    else if (device_ >= 0 && device_ < deviceCount())
      midi_->openPort(unsigned(device_), "Quintara Out");
    open_ = midi_->isPortOpen();
  } catch (const std::exception&) {
    open_ = false;
  }
}

void RtMidiOutPort::close() {
  if (!midi_ || !open_) return;
  try {
    midi_->closePort();
  } catch (const std::exception&) {
  }
  open_ = false;
}

void RtMidiOutPort::send(int status, int d1, int d2) {
  if (!midi_ || !open_) return;
  const unsigned char bytes[3] = {static_cast<unsigned char>(std::clamp(status, 0, 255)),
                                  static_cast<unsigned char>(clampData(d1)),
                                  static_cast<unsigned char>(clampData(d2))};
  try {
    midi_->sendMessage(bytes, sizeof bytes);
  } catch (const std::exception&) {
  }
}

}  // namespace q
