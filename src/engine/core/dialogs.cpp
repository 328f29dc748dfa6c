#include "engine/core/dialogs.h"

namespace q {

MsgResult defaultButton(MsgButtons b) {
  switch (b) {
    case MsgButtons::YesNo:
    case MsgButtons::YesNoCancel:
      return MsgResult::Yes;
    case MsgButtons::RetryCancel:
      return MsgResult::Retry;
    case MsgButtons::AbortRetryIgnore:
      return MsgResult::Abort;
    default:
      return MsgResult::OK;
  }
}

}  // namespace q
