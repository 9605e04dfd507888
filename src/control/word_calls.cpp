#include "control/word_calls.h"

namespace tvx {

bool WordCalls::Call(const CallTarget& target, const std::optional<LocalVariables>& arguments) {
  if (target.times < 1) return true;
  if (calls_.size() == kDeepest) return false;
  calls_.push_back({target, text_->Ahead(), arguments});
  if (arguments) variables_->Enter(*arguments);
  text_->Seek(target.begin);
  return true;
}

bool WordCalls::Return() {
  if (calls_.empty()) return false;
  ActiveCall& call = calls_.back();
  if (call.arguments) variables_->Leave();
  call.target.times -= 1;
  if (call.target.times < 1) {
    text_->Seek(call.returnTo);
    calls_.pop_back();
    return true;
  }
  if (call.arguments) variables_->Enter(*call.arguments);
  text_->Seek(call.target.begin);
  return limit_->Take();
}

}  // namespace tvx
