"""scripts/check-layers reports each kind of fault, and nothing else."""
import pathlib
import subprocess
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "check-layers"

# file, its include line, the fault expected in the output or None
CASES = [
    ("feed/a.h", '#include "model/walks.h"', None),
    ("feed/a.h", '#include "feed/b.h"', None),
    ("cli/a.cpp", '#include "session/app.h"', None),
    ("platform/files/a.h", '#include "platform/b.h"', None),
    ("desktop/window/a.cpp", '#include "desktop/docks/b.h"', None),
    ("desktop/a.cpp", "#include <QWidget>", None),
    ("platform/a.cpp", "#include <sys/stat.h>", None),
    ("model/a.cpp", "#include <vector>", None),
    ("model/a.cpp", '#include "feed/b.h"', 'model/ may not include "feed/b.h"'),
    ("session/a.cpp", '#include "cli/b.h"', 'session/ may not include "cli/b.h"'),
    ("platform/a.cpp", '#include "platform/files/b.h"', 'platform/ may not include "platform/files/b.h"'),
    ("desktop/faces/a.h", '#include "desktop/docks/b.h"', 'desktop/faces/ may not include "desktop/docks/b.h"'),
    ("cli/a.cpp", '#include "desktop/b.h"', 'cli/ may not include "desktop/b.h"'),
    ("view/a.cpp", "#include <QtGui/QImage>", "belongs to desktop/ only"),
    ("calc/a.cpp", "#include <rtl/ustring.hxx>", None),
    ("cli/a.cpp", '#include "calc/b.h"', 'cli/ may not include "calc/b.h"'),
    ("reports/a.cpp", "#include <com/sun/star/uno/Any.hxx>", "belongs to calc/ only"),
    ("jobs/a.cpp", "  #  include <unistd.h>", "belongs to platform/ only"),
    ("model/a.cpp", '#include "path.h"', "must name its folder"),
    ("model/a.cpp", '#include "extra/b.h"', 'model/ may not include "extra/b.h"'),
    ("extra/a.cpp", "", "extra/ is not a layer"),
    ("model/extra/a.cpp", "", "model/extra/ is not a layer"),
]


class CheckLayers(unittest.TestCase):
    def test_cases(self):
        for name, line, fault in CASES:
            with self.subTest(name=name, line=line), tempfile.TemporaryDirectory() as folder:
                path = pathlib.Path(folder) / name
                path.parent.mkdir(parents=True)
                path.write_text("#pragma once\n" + line + "\n")
                run = subprocess.run([SCRIPT, folder], capture_output=True, text=True)
                if fault is None:
                    self.assertEqual((run.returncode, run.stdout), (0, ""))
                else:
                    self.assertEqual(run.returncode, 1)
                    self.assertIn(fault, run.stdout)


unittest.main()
