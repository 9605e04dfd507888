// The LibreOffice that does the work: another process, reached through its component interfaces.
#pragma once

#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/child_process.h"

namespace tvx {

// A new folder for temporary files, removed with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder();  // throws Problem
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

enum class OfficeForm {
  kWindow,  // the user's own office with its settings; one that is running already is used
  kHidden   // an office without a window and with settings of its own, which disturbs no other
};

class Office {
 public:
  // Starts the office and waits until it answers. Throws Problem if it does not.
  explicit Office(OfficeForm form);
  // Ends the office, unless it is in the hands of the user.
  ~Office();
  Office(const Office&) = delete;
  Office& operator=(const Office&) = delete;

  OfficeForm form() const { return form_; }
  const com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2>& desktop() const {
    return desktop_;
  }

  // From now on the office is the user's: it stays when this object goes.
  void LeaveToUser();

 private:
  void Launch();
  void Connect();
  bool TryToConnect();

  const OfficeForm form_;
  const std::string pipe_;                    // name under which the office is reached
  std::unique_ptr<TemporaryFolder> profile_;  // settings of a hidden office
  std::unique_ptr<ChildProcess> process_;
  com::sun::star::uno::Reference<com::sun::star::uno::XComponentContext> context_;
  com::sun::star::uno::Reference<com::sun::star::frame::XDesktop2> desktop_;
};

}  // namespace tvx
