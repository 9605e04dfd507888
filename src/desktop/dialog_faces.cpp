#include "desktop/dialog_faces.h"

#include "desktop/calculator_face.h"
#include "desktop/command_pad_face.h"
#include "desktop/condition_faces.h"
#include "desktop/cut_time_list_face.h"
#include "desktop/file_info_face.h"
#include "desktop/job_faces.h"
#include "desktop/master_face.h"
#include "desktop/restart_face.h"
#include "desktop/settings_faces.h"

namespace tvx {

namespace {

struct FaceMaker {
  bool (*fits)(const Dialog& dialog);
  std::unique_ptr<QDialog> (*make)(Dialog* dialog, QWidget* parent);
};

// A face class F takes the logic of class L and a parent.
template <typename L, typename F>
FaceMaker MakerOf() {
  return {[](const Dialog& dialog) { return dynamic_cast<const L*>(&dialog) != nullptr; },
          [](Dialog* dialog, QWidget* parent) -> std::unique_ptr<QDialog> {
            return std::make_unique<F>(dynamic_cast<L*>(dialog), parent);
          }};
}

const FaceMaker kFaces[] = {
    MakerOf<CCommandPadDlg, CommandPadFace>(),   MakerOf<CFileInfoDlg, FileInfoFace>(),
    MakerOf<CDirSetupDlg, DirSetupFace>(),       MakerOf<CTextInputDlg, TextInputFace>(),
    MakerOf<CDirListDlg, DirListFace>(),         MakerOf<COptionDlg, OptionFace>(),
    MakerOf<CMasterDlg, MasterFace>(),           MakerOf<CAutoFeedDlg, AutoFeedFace>(),
    MakerOf<CAfaSetupDlg, AfaSetupFace>(),       MakerOf<CSendOptionDlg, SendOptionFace>(),
    MakerOf<CTransferDlg, TransferFace>(),       MakerOf<CKeyCodeDlg, KeyCodeFace>(),
    MakerOf<CRestartDlg, RestartFace>(),         MakerOf<CGetFeedDlg, CalculatorFace>(),
    MakerOf<CCutTimeListDlg, CutTimeListFace>(),
};

}  // namespace

std::unique_ptr<QDialog> MakeFace(Dialog* dialog, QWidget* parent) {
  for (const FaceMaker& face : kFaces) {
    if (face.fits(*dialog)) return face.make(dialog, parent);
  }
  return nullptr;
}

}  // namespace tvx
