#pragma once

namespace tvx {

// While one lives, the process has a locale with a decimal comma, built on the spot, as the numbers
// of a program must not follow it.
class CommaLocale {
 public:
  CommaLocale();
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale();

  // False if this machine has no means to build it.
  bool IsSet() const { return isSet_; }

 private:
  bool isSet_ = false;
};

}  // namespace tvx
