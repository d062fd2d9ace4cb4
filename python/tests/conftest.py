"""The package under test is the one of this checkout; the library is the one
XFMT_LIBRARY names (ctest sets it to the build's libxfmt.so)."""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
PACKAGE_ROOT = os.path.dirname(HERE)
CHECKOUT = os.path.dirname(PACKAGE_ROOT)
sys.path.insert(0, PACKAGE_ROOT)
# Worker processes (the Dask test) import the package through PYTHONPATH.
os.environ["PYTHONPATH"] = os.pathsep.join(p for p in (PACKAGE_ROOT, os.environ.get("PYTHONPATH")) if p)

CONTROL_FILE = os.path.join(CHECKOUT, "examples", "cntlout.xml")


def pytest_sessionfinish(session, exitstatus):
    # A run that collected nothing must not pass.
    if session.testscollected == 0:
        session.exitstatus = 1
