"""Tests which part of the designer's window gets the keys: the tree, the search, the document or a dialog."""
import signal
import unittest

import designer_test
import read_docx
from designer_test import DESIGNER, SAMPLE, DesignerTest, setUpModule, tearDownModule  # noqa: F401
from designer_window import (
    BUTTON, Designer, active_window, click, document_has_keyboard, dragging, find, has_focus, key, middle,
    minimize, move_in_steps, point_at, restore, stopped, type_text, wait_for, window_with_focus, xdotool,
)


class InWord(DesignerTest):
    def test_without_a_mouse(self):
        """Keys go to the widget with the focus, wherever the mouse rests."""
        designer = self.start()
        designer.select("Customer")
        point_at(designer.document())
        key("Insert")
        self.wait_for_insertion("Customer")
        designer.select("Order date")
        point_at(designer.document())
        key("ctrl+Return")
        self.wait_for_insertion("Order date")
        self.assertEqual(self.names(self.save_as("keys.docx")), ["CustomerID", "OrderDate"])

    def test_keys_after_a_click_beside_the_document_do_not_go_there(self):
        """The window manager handles a click first, and may be slower than the keys that follow. The mouse is beside
        the document before."""
        designer = self.start()
        designer.select("Order No.")
        key("F6")
        wait_for("the keyboard in the document", document_has_keyboard)
        # The thread that handles this key has handled the movement of the mouse before.
        key("shift+F6")
        wait_for("the keyboard in the tree", lambda: not document_has_keyboard())
        key("F6")
        wait_for("the keyboard in the document", document_has_keyboard)
        with stopped(designer_test.SCREEN.window_manager):
            xdotool("mousemove", *designer.node("Customer"), "click", 1, "key", "x", "x", "x")
            wait_for("the keyboard in the tree", lambda: not document_has_keyboard(), 10)
        designer.select("Customer")
        key("Insert")
        self.wait_for_insertion("Customer")
        self.assertEqual("".join(read_docx.read_paragraphs(self.save_as("clicked.docx"))).rstrip(), "CustomerID")

    def test_an_office_that_takes_the_keyboard_after_a_click_loses_it(self):
        """A busy office does so, also after the click that begins a drag."""
        designer = self.start()
        self.enter_document()
        document = window_with_focus()
        start, end = designer.node("Customer"), designer.document()
        click(start)
        wait_for("the keyboard in the tree", lambda: window_with_focus() != document)
        xdotool("mousedown", 1)
        xdotool("windowfocus", document)
        wait_for("the keyboard in the tree again", lambda: not document_has_keyboard())
        move_in_steps(start, end)
        xdotool("mouseup", 1)
        self.wait_for_insertion("Customer")
        self.click_search()
        xdotool("windowfocus", document)
        wait_for("the keyboard in the search again", lambda: not document_has_keyboard())
        type_text("contact")
        wait_for("the result", lambda: not find(designer.application, "table cell", "Priority"))

    def test_the_keyboard_is_where_it_was_before_another_window(self):
        designer = self.start()
        self.enter_document()
        type_text("one")
        minimize()
        restore()
        wait_for("the keyboard in the document", document_has_keyboard)
        type_text("two")
        self.assertEqual(read_docx.read_paragraphs(self.save_as("typed.docx")), ["onetwo"])
        designer.select("Customer")
        minimize()
        restore()
        designer.wait_until_active()
        key("Insert")
        self.wait_for_insertion("Customer")

    def test_a_click_counts_before_the_document_has_its_keyboard_again(self):
        """The window manager gives the window the focus at each click. A busy window notices that after the document
        was given it."""
        designer = self.start()
        self.drop("Customer")
        place = designer.document()
        for typed in "12345":
            wait_for("the keyboard in the document", document_has_keyboard)
            type_text(typed)
            self.open_help("Drag a field")
            with designer.stopped_office():
                key("alt+F4")
                designer.wait_until_active()
                with stopped(designer.process.pid):
                    xdotool("key", "--delay", 0, *["a"] * 300)
                    click(place)
        wait_for("the keyboard in the document", document_has_keyboard)
        text = "".join(read_docx.read_paragraphs(self.save_as("clicked.docx"))).replace("CustomerID", "")
        # A document that was given the keyboard before the window was stopped has its share of these keys.
        self.assertEqual(sorted(text.replace("a", "").strip()), list("12345"))

    def click_search(self):
        search = self.designer.element("text", "Search:")
        click(middle(search))
        wait_for("the focus in the search", lambda: has_focus(search) and not document_has_keyboard())

    def test_keys_that_come_during_a_command_follow_it(self):
        designer = self.start()
        designer.select("Customer")
        with designer.stopped_office():
            key("Insert")
            wait_for("the busy window", lambda: find(designer.application, "progress bar"))
            key("Down", "Insert")
        self.wait_for_insertion("Buyer's contact")
        self.assertEqual(self.names(self.save_as("ahead.docx")), ["CustomerID", "Contact"])

    def test_keys_that_come_before_a_question_do_not_answer_it(self):
        designer = self.start()
        designer.select('Form "Orders"')
        with designer.stopped_office():
            key("Insert")
            wait_for("the busy window", lambda: find(designer.application, "progress bar"))
            key("ctrl+l", "Return", "Down", "Insert", "Escape", "ctrl+z", "ctrl+n")
        designer.press("Insert", designer.dialog("Select Fields"))
        self.wait_for_insertion('Form "Orders"')
        self.assertEqual(self.names(self.save_as("form.docx")), self.mapped_names())

    def test_f6_goes_round_the_window(self):
        designer = self.start()
        self.enter_document()
        type_text("one")
        key("F6")
        self.wait_for_focus(BUTTON, "Help")
        key("F6")
        self.wait_for_focus("text", "Search:")
        key("F6", "Home", "Down", "Down", "Down", "Insert")
        self.wait_for_insertion("Order No.")
        key("F6")
        wait_for("the focus in the document", document_has_keyboard)
        type_text("two")
        key("shift+F6")
        tree = designer.element("table cell", "Order No.").get_parent()
        wait_for("the focus in the tree", lambda: has_focus(tree))
        key("shift+F6")
        self.wait_for_focus("text", "Search:")
        designer.element("list item", "OrderNumber")
        key("Tab", "Tab", "Tab")  # over the tree and the list of places
        self.wait_for_focus(BUTTON, "Help")
        key("shift+F6")
        wait_for("the focus in the document", document_has_keyboard)
        type_text("three")
        text = "".join(read_docx.read_paragraphs(self.save_as("round.docx")))
        self.assertEqual(text.replace("OrderNumber", "").replace(" ", ""), "onetwothree")

    def open_help(self, topic):
        key("F1")
        wait_for("the help", lambda: self.designer.help_topic() == topic)
        wait_for("the help in front", lambda: active_window() == "Mergeloom Help")

    def close_help(self):
        key("alt+F4")
        wait_for("the end of the help", lambda: self.designer.help_topic() is None)

    def test_f1_opens_help_in_the_document_and_in_dialogs(self):
        designer = self.start()
        self.enter_document()
        self.open_help("Drag a field")
        self.picture("help-document")
        self.close_help()
        designer.wait_until_active()
        wait_for("the keyboard in the document", document_has_keyboard)
        type_text("typed")
        key("ctrl+shift+s")
        box = designer.dialog()
        self.open_help("File dialogs")
        self.picture("help-dialog")
        self.close_help()
        designer.press("Cancel", box)
        self.assertEqual(read_docx.read_paragraphs(self.save_as("typed.docx")), ["typed"])

    def test_escape_ends_a_drag(self):
        designer = self.start()
        with dragging(designer.node("Customer"), designer.document()):
            key("Escape")
        self.drop("Priority")
        self.assertEqual(self.names(self.save_as("escaped.docx")), ["Priority"])

    def test_the_search_keeps_its_keys_to_itself(self):
        designer = self.start()
        click(middle(designer.element("text", "Search:")))
        point_at(designer.document())
        type_text("contact")
        wait_for("the search", lambda: not find(designer.application, "table cell", "Priority"))
        self.picture("search")
        self.drop("Buyer's contact")
        path = self.save_as("found.docx")
        self.assertEqual("".join(read_docx.read_paragraphs(path)).rstrip(), self.names(path)[0])

    def test_the_document_takes_the_focus_from_the_search(self):
        designer = self.start()
        search = designer.element("text", "Search:")

        def is_left():
            return not has_focus(search)
        self.click_search()
        self.enter_document()
        wait_for("the search without the focus", is_left)
        top, place = xdotool("getactivewindow").strip(), designer.document()
        self.click_search()
        designer.process.send_signal(signal.SIGSTOP)
        try:
            # The focus moves to the window and on to the document before the program notices either step.
            xdotool("windowfocus", top)
            click(place)
        finally:
            designer.process.send_signal(signal.SIGCONT)
        wait_for("the search without the focus again", is_left)
        self.click_search()
        type_text("contact")
        wait_for("the result", lambda: not find(designer.application, "table cell", "Priority"))

    def test_a_click_counts_more_than_the_slow_entry_of_the_document(self):
        """A drop, too, enters the document, and the office may be busy for long."""
        designer = self.start()
        designer.select("Order No.")
        with designer.stopped_office():
            key("F6")
            wait_for("the keyboard in the document", document_has_keyboard)
            designer.select("Customer")
        key("Insert")
        self.wait_for_insertion("Customer")
        self.assertFalse(document_has_keyboard())

    def test_a_click_during_the_start_counts(self):
        designer = self.designer = Designer(DESIGNER, ["-xmlfile", SAMPLE])
        self.addCleanup(designer.close)
        wait_for("the process of the office", self.has_office)
        with designer.stopped_office():
            self.click_search()
        designer.wait_until_ready()
        self.assertFalse(document_has_keyboard())
        type_text("contact")
        wait_for("the result", lambda: not find(designer.application, "table cell", "Priority"))

    def test_a_click_while_a_preview_is_made_counts(self):
        designer = self.start()
        self.drop("Customer")
        designer.select("Priority")
        with designer.stopped_office():
            key("F5")
            wait_for("the busy window", lambda: find(designer.application, "progress bar"))
            click(middle(designer.element("text", "Search:")))
        wait_for("the preview", lambda: designer.status().startswith("Record 1"))
        self.wait_for_focus("text", "Search:")
        self.assertFalse(document_has_keyboard())

    def has_office(self):
        try:
            return self.designer.office_process()
        except StopIteration:
            return None


if __name__ == "__main__":
    unittest.main()
