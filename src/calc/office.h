// The LibreOffice process that tvx-calc drives through its component interfaces (UNO).
#pragma once

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <memory>
#include <string>

#include "platform/processes/child_process.h"

namespace tvx {

// Thrown when a step cannot be carried out: the reason, as a text for the caller of tvx-calc.
struct Problem {
  std::string reason;
};

class TemporaryFolder;

enum class OfficeForm {
  kWindow,  // the user's office with its settings; an office that is already running is used
  kHidden,  // a separate office without a window, with temporary settings
};

class Office {
 public:
  // Starts the office and waits until it answers. Throws Problem if it does not.
  explicit Office(OfficeForm form);
  // Ends the office, unless it is left to the user.
  ~Office();
  Office(const Office&) = delete;
  Office& operator=(const Office&) = delete;

  OfficeForm form() const { return form_; }
  const com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>& desktop() const {
    return desktop_;
  }

  // Leaves the office to the user: it keeps running when this object is destroyed.
  void LeaveToUser();

 private:
  void Launch();
  void Connect();
  bool TryToConnect();

  const OfficeForm form_;
  const std::string pipe_;                    // name of the pipe that the office listens on
  std::unique_ptr<TemporaryFolder> profile_;  // settings of a hidden office
  std::unique_ptr<ChildProcess> process_;
  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context_;
  com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> desktop_;
};

}  // namespace tvx
