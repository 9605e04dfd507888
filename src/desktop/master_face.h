// The face of the input of a master model.
#pragma once

#include "desktop/face.h"
#include "feed/master_build.h"

namespace tvx {

class MasterFace : public Face {
 public:
  MasterFace(CMasterDlg* dialog, QWidget* parent);
};

}  // namespace tvx
