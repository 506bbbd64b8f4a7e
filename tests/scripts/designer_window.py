"""Drives the designer's real window on a screen of its own with keys and mouse moves, and reads it as assistive
programs do.
"""
import os
import shutil
import signal
import subprocess
import tempfile
import time
from contextlib import contextmanager
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version comes first)

SCREEN_WIDTH, SCREEN_HEIGHT = 1280, 960
# The name of the role of buttons, which AT-SPI has changed in release 2.56.
BUTTON = Atspi.role_get_name(Atspi.Role.PUSH_BUTTON)
MINIMIZED = []  # the windows' numbers
PATIENCE = 180  # seconds; only a program that hangs takes so long


def wait_for(what, condition, patience=PATIENCE):
    """Returns the first result of the condition that is true. A program that is too busy to answer has none yet."""
    end = time.monotonic() + patience
    while time.monotonic() < end:
        try:
            answer = condition()
        except GLib.Error:
            answer = None
        if answer:
            return answer
        time.sleep(0.05)
    raise AssertionError(f"waited {patience} s in vain for {what}")


def first_line(process):
    return process.stdout.readline().strip()


class Screen:
    """A display with a window manager and a message bus, for the whole test program."""

    def __init__(self):
        self.processes = []
        display = self.start(["Xvfb", "-displayfd", "1", "-noreset", "-screen", "0", f"{SCREEN_WIDTH}x{SCREEN_HEIGHT}x24"])
        os.environ["DISPLAY"] = ":" + first_line(display)
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address"])
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = first_line(bus)
        self.window_manager = self.start(["openbox"]).pid

    def start(self, command):
        self.processes.append(
            subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        )
        return self.processes[-1]

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()


@contextmanager
def stopped(process):
    """Lets a process do nothing in the body, like one that is busy for a long time."""
    os.kill(process, signal.SIGSTOP)
    try:
        yield
    finally:
        os.kill(process, signal.SIGCONT)


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], check=True, capture_output=True, text=True).stdout


def key(*names):
    xdotool("key", "--delay", 20, *names)


def type_text(text):
    xdotool("type", "--delay", 15, text)


def click(place, button=1):
    xdotool("mousemove", *place)
    xdotool("click", button)


def double_click(place):
    xdotool("mousemove", *place)
    xdotool("click", "--repeat", 2, "--delay", 50, 1)


def point_at(place):
    xdotool("mousemove", *place)


def drag(start, end):
    with dragging(start, end):
        pass


@contextmanager
def dragging(start, end):
    """Drags as a hand does: starts with a small move and goes on in several steps. The body runs before the release of
    the button."""
    xdotool("mousemove", *start)
    xdotool("mousedown", 1)
    move_in_steps(start, end)
    yield
    xdotool("mouseup", 1)


def move_in_steps(start, end):
    """Moves the mouse in steps with its button held, and pauses at the end."""
    steps = 8
    for step in range(1, steps + 1):
        place = [a + (b - a) * step // steps for a, b in zip(start, end)]
        xdotool("mousemove", *place)
        time.sleep(0.04)
    time.sleep(0.15)


def active_window():
    """Returns the title of the active window; empty while the focus changes."""
    answer = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True)
    return answer.stdout.strip()


def number_of(*question):
    """Returns the number of the window that xdotool finds; 0 for none."""
    answer = subprocess.run(["xdotool", *question], capture_output=True, text=True).stdout.strip()
    return int(answer or 0)


def window_with_focus():
    return number_of("getwindowfocus", "-f")


def document_has_keyboard():
    """Returns true if the window with the focus is inside the active one and another process has made it.

    The number of a window begins with that of the connection that made it."""
    def maker(window):
        return window & ~0x1FFFFF
    active = number_of("getactivewindow")  # none while another window is closed
    return active != 0 and maker(window_with_focus()) != maker(active)


def has_focus(element):
    return element.get_state_set().contains(Atspi.StateType.FOCUSED)


def minimize():
    """Minimizes the active window and waits until it has left the screen."""
    window = xdotool("getactivewindow").strip()
    xdotool("windowminimize", "--sync", window)
    MINIMIZED.append(window)


def restore():
    """Restores the window that was minimized last."""
    xdotool("windowactivate", "--sync", MINIMIZED.pop())


def resize_active_window(width, height):
    xdotool("getactivewindow", "windowsize", width, height)


def screenshot(path):
    subprocess.run(["import", "-window", "root", str(path)], check=True)


def pixels(left, top, width, height):
    """Returns the pixels of a part of the screen."""
    part = f"{width}x{height}+{left}+{top}"
    command = ["import", "-window", "root", "-crop", part, "-depth", "8", "rgb:-"]
    return subprocess.run(command, check=True, capture_output=True).stdout


def share_of_color(box, color):
    """Returns the share of the pixels of a color in a box of left, top, width and height."""
    taken = pixels(*box)
    matching = sum(taken[index:index + 3] == bytes(color) for index in range(0, len(taken), 3))
    return 3 * matching / len(taken)


def places_of(box, color):
    """Returns the points on the screen that have a color, inside a box of left, top, width and height."""
    left, top, width, height = box
    taken = pixels(*box)
    return [(left + index % width, top + index // width)
            for index in range(width * height) if taken[3 * index:3 * index + 3] == bytes(color)]


def children(element):
    return [element.get_child_at_index(k) for k in range(element.get_child_count())]


def is_showing(element):
    return element.get_state_set().contains(Atspi.StateType.SHOWING)


def find(element, role, name=None):
    """Returns the visible elements of a role below another element, and only those of a name if one is given."""
    found = []
    for child in children(element):
        if child is None or not is_showing(child):
            continue
        if child.get_role_name() == role and name in (None, child.get_name()):
            found.append(child)
        found += find(child, role, name)
    return found


def middle(element):
    box = element.get_extents(Atspi.CoordType.SCREEN)
    return box.x + box.width // 2, box.y + box.height // 2


def size_of(element):
    box = element.get_extents(Atspi.CoordType.SCREEN)
    return box.width, box.height


class Designer:
    """A run of the program with a home of its own, or with the home of an earlier run."""

    def __init__(self, program, arguments, wait=True, home=None):
        self.home = home or Path(tempfile.mkdtemp(prefix="designer-"))
        environment = dict(
            os.environ, HOME=str(self.home), XDG_CONFIG_HOME=str(self.home / "config"),
            XDG_STATE_HOME=str(self.home / "state"), XDG_DATA_HOME=str(self.home / "data"),
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8",
        )
        self.process = subprocess.Popen([program, *map(str, arguments)], env=environment)
        self.application = None
        if wait:
            self.attach()

    def attach(self):
        """Waits until the program answers as an accessible application."""
        self.application = wait_for("the program", self.find_application)

    def find_application(self):
        if self.process.poll() is not None:
            raise AssertionError(f"the designer ended with {self.process.returncode}")
        for application in children(Atspi.get_desktop(0)):
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def window(self):
        """Returns the main window."""
        return wait_for("the window", lambda: next(iter(find(self.application, "frame")), None))

    def wait_until_active(self):
        """Waits until keys go to the main window, for example after a dialog. The window gives the focus to a small
        window inside it."""
        def is_active():
            if self.process.poll() is not None:
                return True
            return active_window() == self.full_title() and window_with_focus() != number_of("getactivewindow")
        wait_for("the keyboard", is_active)

    def full_title(self):
        return self.window().get_name()

    def title(self):
        """Returns the name of the document in the title, without the star of changes and the program."""
        return self.full_title().removesuffix(" - Mergeloom").removeprefix("*")

    def dialog(self, name=""):
        """Returns the dialog or message box whose title begins with the name."""
        def shown():
            boxes = find(self.application, "dialog") + find(self.application, "alert")
            return next((box for box in boxes if box.get_name().startswith(name)), None)
        return wait_for(f"the dialog {name}", shown)

    def has_dialog(self):
        return bool(find(self.application, "dialog") + find(self.application, "alert"))

    def element(self, role, name):
        return wait_for(f"the {role} {name}", lambda: next(iter(find(self.application, role, name)), None))

    def choose(self, *names):
        """Chooses an entry of the menus."""
        for entry in names:
            click(middle(self.element("menu item", entry)))

    def press(self, name, within=None):
        """Presses a button with the mouse."""
        place = within or self.application
        click(middle(wait_for(f"the button {name}", lambda: next(iter(find(place, BUTTON, name)), None))))

    def texts_of(self, box):
        return " ".join(label.get_name() for label in find(box, "label"))

    def status(self):
        """Returns the text of the status line."""
        bar = next(iter(find(self.application, "status bar")), None)
        return self.texts_of(bar) if bar else ""

    def wait_until_ready(self):
        if self.application is None:
            self.attach()
        wait_for("the hosted document", lambda: self.status().startswith(("Drag a field", "Load a structure")))

    def node(self, text):
        """Returns a point at which a node of the tree can be clicked and dragged."""
        cells = wait_for(f"the node {text}", lambda: find(self.application, "table cell", text))
        box = cells[0].get_extents(Atspi.CoordType.SCREEN)
        return box.x + min(40, box.width // 2), box.y + box.height // 2

    def select(self, text):
        """Clicks a node and waits until it is selected and the tree has the focus. Keys that follow at once
        would arrive before the click, which the window manager handles first."""
        def is_selected():
            return any(cell.get_state_set().contains(Atspi.StateType.SELECTED) and has_focus(cell.get_parent())
                       for cell in find(self.application, "table cell", text))
        click(self.node(text))
        wait_for(f"{text} as the selected node", is_selected)
        self.wait_until_active()

    def expand(self, text):
        self.select(text)
        key("Right")

    def document_box(self):
        """Returns the left, top, width and height of the hosted document's pane."""
        box = self.element("filler", "Document").get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def document(self):
        """Returns a point on the first lines of the hosted document."""
        left, top, width, height = self.document_box()
        return left + width // 3, top + height // 3

    def corner(self):
        """Returns a point at the lower right of the hosted document, which dialogs do not cover."""
        left, top, width, height = self.document_box()
        return left + width - 150, top + height - 120

    def help_topic(self):
        """Returns the selected entry of the contents in the help window; none without such a window."""
        for window in find(self.application, "frame", "Mergeloom Help"):
            for entry in find(window, "tree item") + find(window, "table cell"):
                if entry.get_state_set().contains(Atspi.StateType.SELECTED):
                    return entry.get_name()
        return None

    def answer_file_dialog(self, path):
        self.dialog()
        time.sleep(0.3)
        key("ctrl+a")
        type_text(str(path))
        key("Return")

    def office_process(self):
        """Returns the number of the office's own process."""
        listing = subprocess.run(["ps", "-eo", "pid,ppid,args"], capture_output=True, text=True, check=True).stdout
        rows = [line.split(None, 2) for line in listing.splitlines()[1:]]
        return next(int(pid) for pid, _, args in rows
                    if "soffice.bin" in args and str(self.process.pid) in self.ancestors(pid, rows))

    def stopped_office(self):
        return stopped(self.office_process())

    @staticmethod
    def ancestors(pid, rows):
        parents = {row[0]: row[1] for row in rows}
        chain = []
        while pid in parents:
            chain.append(pid)
            pid = parents[pid]
        return chain

    def end(self):
        """Ends the program if it is still running."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()

    def close(self):
        self.end()
        shutil.rmtree(self.home, ignore_errors=True)
