"""User-defined formats from a control file or from its XML text."""

import os
import re
import tempfile
import threading

from . import _lib


class UserFormats:
    """User-defined formats (value labels, ranges, pictures) as the library
    reads them from a control file ("cntlout.xml").

    Built by :func:`load_formats`. Carries the XML text itself, so it pickles
    and is read again in the process that loads it (a worker of a cluster
    needs no access to the original file).
    """

    def __init__(self, xml_text, source=None):
        self.xml_text = xml_text
        self.source = source
        self._path = None
        self._ctx = None
        self._lock = threading.Lock()

    @property
    def names(self):
        """The format names the text defines, in order of appearance."""
        seen = []
        for m in re.finditer(r"<FMTNAME>\s*([^<\s]+)\s*</FMTNAME>", self.xml_text):
            if m.group(1) not in seen:
                seen.append(m.group(1))
        return seen

    def _context(self):
        # The library reads control files by path: this process writes its own
        # copy of the text once and keeps it for the object's life.
        with self._lock:
            if self._ctx is None:
                fd, path = tempfile.mkstemp(prefix="xfmt-formats-", suffix=".xml")
                with os.fdopen(fd, "w", encoding="utf-8") as f:
                    f.write(self.xml_text)
                self._path = path
                ctx = _lib.UserFormatContext()
                ctx.control_path = path.encode()
                self._ctx = ctx
            return self._ctx

    def __getstate__(self):
        return {"xml_text": self.xml_text, "source": self.source}

    def __setstate__(self, state):
        self.__init__(state["xml_text"], state.get("source"))

    def __del__(self):
        path = getattr(self, "_path", None)
        if path:
            try:
                os.unlink(path)
            except OSError:
                pass

    def __repr__(self):
        return "UserFormats(%s)" % (", ".join(self.names) or "empty")


def load_formats(path_or_text):
    """User-defined formats from a control file path, or from the XML text
    itself (a str that starts with "<").

    >>> fmts = load_formats("examples/cntlout.xml")        # doctest: +SKIP
    >>> xfmt.format([15, 99], "AGEGRP.", formats=fmts)      # doctest: +SKIP
    ['teen & y', 'adult']
    """
    if isinstance(path_or_text, os.PathLike):
        path_or_text = os.fspath(path_or_text)
    if not isinstance(path_or_text, str):
        raise TypeError("load_formats takes a path or the XML text")
    if path_or_text.lstrip().startswith("<"):
        return UserFormats(path_or_text)
    with open(path_or_text, encoding="utf-8") as f:
        return UserFormats(f.read(), source=path_or_text)
