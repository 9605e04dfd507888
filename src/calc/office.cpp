// Starts the office, connects to it, and ends it.
#include "calc/office.h"

#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/connection/NoConnectException.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <filesystem>
#include <rtl/bootstrap.hxx>
#include <thread>
#include <vector>

#include "base/format.h"
#include "calc/uno_text.h"
#include "platform/files/temporary_folder.h"
#include "platform/processes/host_programs.h"

namespace tvx {

namespace uno = com::sun::star::uno;

namespace {

// Longer than the caller of this program waits: ends a start whose caller has given up.
constexpr Milliseconds kLongestStart{120000};
constexpr Milliseconds kTryAgain{50};
constexpr Milliseconds kOrderlyEnd{3000};

// Exit statuses by which an office asks to be started again after it has set up its settings.
constexpr int kStartAgain = 81;
constexpr int kStartAgainAfterCrash = 79;

constexpr char kProgramFolder[] = TVX_OFFICE_PROGRAM_FOLDER;

// An office that finds no display, or that was installed without its windows, runs without a
// window. The user would then not see the workbook, so this is refused.
void CheckForWindow() {
  if (!HasDisplay()) throw Problem{"there is no display"};
  std::error_code error;
  for (std::filesystem::directory_iterator file(kProgramFolder, error), end; !error && file != end;
       file.increment(error)) {
    if (file->path().filename().string().starts_with("libvclplug_")) return;
  }
  throw Problem{"LibreOffice is not installed here, or without its windows"};
}

}  // namespace

Office::Office(OfficeForm form) : form_(form), pipe_(UniqueTemporaryName()) {
  if (form_ == OfficeForm::kWindow) CheckForWindow();
  if (form_ == OfficeForm::kHidden) {
    profile_ = std::make_unique<TemporaryFolder>();
    if (profile_->path().empty()) {
      throw Problem{"no temporary folder can be made: " + profile_->error().message()};
    }
  }
  Launch();
  Connect();
}

void Office::Launch() {
  const std::string folder = kProgramFolder;
  std::vector<std::string> command = {
      // The script handles the user's settings, crashes and an office that is already running; the
      // program is the office itself.
      folder + (form_ == OfficeForm::kWindow ? "/soffice" : "/soffice.bin"),
      "--nologo",
      "--nodefault",
      "--norestore",
      "--accept=pipe,name=" + pipe_ + ";urp;StarOffice.ComponentContext",
  };
  if (!std::filesystem::exists(command[0])) {
    throw Problem{"LibreOffice is not installed in " + folder};
  }
  if (form_ == OfficeForm::kWindow) {
    process_ = ChildProcess::Start(command, ChildTies::kNeighbour);
  } else {
    command.insert(command.end(), {"--headless", "--invisible",
                                   "-env:UserInstallation=" + FileUrl(profile_->path())});
    command = TiedToThisProcess(std::move(command));
    // In the "C" locale an office finds no file whose name is not ASCII.
    process_ = ChildProcess::Start(command, ChildTies::kServant, {"LC_ALL=C.UTF-8"});
  }
  if (process_ == nullptr) throw Problem{"LibreOffice cannot be started"};
  process_->EndInPlaceOfThisProcess();
}

void Office::Connect() {
  // Without this variable the client library finds no types and crashes at the first call.
  const rtl::OUString variable("URE_BOOTSTRAP");
  rtl::Bootstrap::set(variable,
                      "vnd.sun.star.pathname:" TVX_OFFICE_PROGRAM_FOLDER "/fundamentalrc");
  context_ = cppu::defaultBootstrap_InitialComponentContext();

  int moreStarts = 3;
  bool handedOn = false;  // the command was passed to an office that is already running
  const auto end = std::chrono::steady_clock::now() + kLongestStart;
  while (!TryToConnect()) {
    if (std::chrono::steady_clock::now() > end) throw Problem{"LibreOffice does not answer"};
    const std::optional<int> status = handedOn ? std::nullopt : process_->ExitStatus();
    if (status == kStartAgain || status == kStartAgainAfterCrash) {
      if (moreStarts-- == 0) throw Problem{"LibreOffice ends again and again"};
      Launch();
    } else if (status == 0 && form_ == OfficeForm::kWindow) {
      handedOn = true;
    } else if (status.has_value()) {
      throw Problem{Format("LibreOffice ended with status %d", *status)};
    }
    std::this_thread::sleep_for(kTryAgain);
  }
}

bool Office::TryToConnect() {
  const auto resolver = com::sun::star::bridge::UnoUrlResolver::create(context_);
  try {
    const uno::Reference<uno::XComponentContext> office(
        resolver->resolve("uno:pipe,name=" + FromUtf8(pipe_) + ";urp;StarOffice.ComponentContext"),
        uno::UNO_QUERY_THROW);
    desktop_ = com::sun::star::frame::Desktop::create(office);
  } catch (const com::sun::star::connection::NoConnectException&) {
    return false;
  }
  return true;
}

void Office::LeaveToUser() {
  process_->Leave();
  desktop_.clear();
}

Office::~Office() {
  if (!desktop_.is() || process_->ExitStatus().has_value()) return;
  try {
    // The user may have opened a document in it meanwhile.
    if (desktop_->getComponents()->createEnumeration()->hasMoreElements()) {
      process_->Leave();
      return;
    }
    desktop_->terminate();
    process_->WaitForEnd(kOrderlyEnd);
  } catch (const uno::Exception&) {
    // The office has ended or does not answer: the destructor of `process_` ends it.
  }
}

}  // namespace tvx
