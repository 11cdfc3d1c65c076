"""The include checker finds what it is there for."""
import pathlib
import subprocess
import sys
import tempfile

CHECKER = pathlib.Path(__file__).resolve().parents[2] / "tools" / "check-includes"

# (file, contents, whether it is a fault)
CASES = [
    ("src/version/a.h", '#include "platform/text/text.h"', False),
    ("src/platform/text/a.h", '#include "version/file_class.h"', True),
    ("src/platform/text/a.cpp", '#include "platform/qt/qt_desktop.h"', True),
    ("src/platform/text/a.cpp", '#include "platform/linux/x.h"', True),
    ("src/platform/values/a.cpp", '#include "platform/controls/x.h"', True),
    ("src/platform/a.cpp", "", True),
    ("src/app/a.cpp", "#include <QString>", True),
    ("src/platform/qt/linux/a.cpp", "#include <QString>", False),
    ("src/platform/qt/linux/a.cpp", '#include "platform/linux/x.h"', False),
    ("src/platform/qt/a.cpp", '#include "platform/linux/x.h"', True),
    ("src/chooser/a.cpp", '#include "app/app.h"', False),
    ("src/chooser/a.h", '#include "app/app.h"', True),
    ("src/version/a.cpp", '#include "persistence/x.h"', True),
    ("src/version/a.cpp", "#include <filesystem>", True),
    ("tests/lost/a_test.cpp", "", True),
]

wrong = 0
for name, contents, fault in CASES:
    with tempfile.TemporaryDirectory() as folder:
        for needed in ("src", "tests"):
            (pathlib.Path(folder) / needed).mkdir()
        path = pathlib.Path(folder) / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(contents + "\n")
        found = subprocess.run([sys.executable, CHECKER, folder], stdout=subprocess.DEVNULL)
        if (found.returncode != 0) != fault:
            print(f"{name} with {contents}: fault {fault} expected")
            wrong += 1
sys.exit(1 if wrong else 0)
