"""Makes and reads files with a password in a LibreOffice of its own, without the program under test.

protected_files.py write PASSWORD TEXT FILE... writes files with a text, each in the format of its name.
protected_files.py modify TEXT FILE writes a file that needs a password to be changed only.
protected_files.py read PASSWORD FILE COPY writes what the file holds without a password; an empty password is none.
It ends with 3 when the file is not opened.
"""
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import uno
from com.sun.star.beans import NamedValue, PropertyValue

WRITER = "private:factory/swriter"
CALC = "private:factory/scalc"
FILTERS = {
    "docx": (WRITER, "MS Word 2007 XML"), "dotx": (WRITER, "MS Word 2007 XML Template"),
    "odt": (WRITER, "writer8"), "doc": (WRITER, "MS Word 97"),
    "xlsx": (CALC, "Calc MS Excel 2007 XML"), "ods": (CALC, "calc8"), "xls": (CALC, "MS Excel 97"),
}
PACKAGES = ("docx", "dotx", "xlsx")


def value(name, content, kind=PropertyValue):
    made = kind()
    made.Name, made.Value = name, content
    return made


def protection(path, password):
    """Returns the options that encrypt a file. LibreOffice ignores a plain password for Open Packaging."""
    if path.suffix[1:] not in PACKAGES:
        return [value("Password", password)]
    data = (value("OOXPassword", password, NamedValue), value("CryptoType", "Standard", NamedValue))
    return [value("EncryptionData", uno.Any("[]com.sun.star.beans.NamedValue", data))]


def write(desktop, text, path, options):
    factory, name = FILTERS[path.suffix[1:]]
    document = desktop.loadComponentFromURL(factory, "_blank", 0, (value("Hidden", True),))
    if factory == WRITER:
        document.Text.setString(text)
    else:
        document.Sheets.getByIndex(0).getCellByPosition(0, 0).setString(text)
    document.storeToURL(path.as_uri(), (value("FilterName", name), *options))
    document.close(True)


def modify_options():
    salt = uno.ByteSequence(b"0123456789abcdef")
    info = (value("algorithm-name", "PBKDF2"), value("salt", salt), value("hash", salt),
            value("iteration-count", uno.Any("long", 1024)))
    return [value("ModifyPasswordInfo", uno.Any("[]com.sun.star.beans.PropertyValue", info))]


def read(desktop, password, path, copy):
    # The file may be locked by the program under test.
    options = [value("Hidden", True), value("ReadOnly", True)]
    if password:
        options.append(value("Password", password))
    try:
        document = desktop.loadComponentFromURL(path.as_uri(), "_blank", 0, tuple(options))
    except uno.getClass("com.sun.star.lang.IllegalArgumentException"):
        document = None
    if document is None:
        return 3
    document.storeToURL(copy.as_uri(), (value("FilterName", FILTERS[copy.suffix[1:]][1]),))
    document.close(True)
    return 0


def run(desktop, command, *rest):
    if command == "write":
        password, text, *paths = rest
        for path in map(Path, paths):
            write(desktop, text, path, protection(path, password))
        return 0
    if command == "modify":
        write(desktop, rest[0], Path(rest[1]), modify_options())
        return 0
    password, path, copy = rest
    return read(desktop, password, Path(path), Path(copy))


def connect(pipe):
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
    for _ in range(600):
        try:
            office = resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
            return office.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", office)
        except uno.getClass("com.sun.star.connection.NoConnectException"):
            time.sleep(0.1)
    raise TimeoutError("LibreOffice does not listen.")


def main():
    with tempfile.TemporaryDirectory() as profile:
        pipe = Path(profile).name
        office = subprocess.Popen(["soffice", "--headless", "--norestore", f"-env:UserInstallation=file://{profile}",
                                   f"--accept=pipe,name={pipe};urp;"], stderr=subprocess.DEVNULL)
        desktop = connect(pipe)
        try:
            return run(desktop, *sys.argv[1:])
        finally:
            try:
                desktop.terminate()
            except uno.getClass("com.sun.star.lang.DisposedException"):
                pass  # It ended before it could answer.
            office.wait()


if __name__ == "__main__":
    sys.exit(main())
