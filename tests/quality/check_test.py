#!/usr/bin/env python3
"""Shows for each rule that it finds the fault it is there for, and leaves sound code alone."""
import pathlib
import tempfile
import unittest

import architecture
import calls
import layers
import screens
import site_pages
import wording
from source_tree import Tree

HEAD = "// SPDX-License-Identifier: GPL-3.0-or-later\n"
ONCE = HEAD + "#pragma once\n"


class RuleTest(unittest.TestCase):
    def found(self, rule, files):
        with tempfile.TemporaryDirectory() as root:
            for name, text in files.items():
                path = pathlib.Path(root, name)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return list(rule(Tree(root)))

    def assert_clean(self, rule, files):
        self.assertEqual(self.found(rule, files), [])

    def assert_finds(self, rule, files, *pieces):
        """One finding a piece, and no other."""
        found = self.found(rule, files)
        self.assertEqual(len(found), len(pieces), found)
        for piece in pieces:
            self.assertTrue(any(piece in each for each in found), f"{piece!r} is not in {found}")


class Layers(RuleTest):
    STORE = {"src/platform/store/Dao.h": ONCE}

    def test_an_include_may_only_go_down(self):
        down = {"src/songlist/Grid.cpp": '#include "platform/store/Dao.h"\n#include "Row.h"\n#include "ui_Grid.h"\n',
                "src/songlist/Row.h": ONCE, **self.STORE}
        self.assert_clean(layers.floors, down)
        up = {"src/platform/store/Dao.cpp": HEAD + '#include "songlist/Row.h"\n', "src/songlist/Row.h": ONCE}
        self.assert_finds(layers.floors, up, "Dao.cpp:2: platform/store may not include songlist")
        beside = {"src/intake/Scan.cpp": '#include "player/Player.h"\n', "src/player/Player.h": ONCE}
        self.assert_finds(layers.floors, beside, "intake may not include player")

    def test_every_folder_has_its_floor_and_every_include_its_file(self):
        self.assert_finds(layers.floors, {"src/attic/Old.cpp": HEAD}, "src/attic stands on no floor")
        self.assert_finds(layers.floors, {"src/desktop/A.cpp": '#include "desktop/Gone.h"\n'}, "Gone.h")

    def test_headers_may_not_include_each_other(self):
        ring = {"src/desktop/A.h": '#include "desktop/B.h"\n', "src/desktop/B.h": '#include "C.h"\n',
                "src/desktop/C.h": '#include "desktop/A.h"\n'}
        self.assert_finds(layers.circles, ring, "A.h > src/desktop/B.h > src/desktop/C.h > src/desktop/A.h")
        diamond = {**ring, "src/desktop/C.h": ONCE, "src/desktop/A.cpp": '#include "A.h"\n#include "C.h"\n'}
        self.assert_clean(layers.circles, diamond)

    def test_foreign_headers_stay_on_the_platform_floor(self):
        code = "#include <QString>\n#include <QtMath>\n#include <QtGui/QFont>\n#include <vector>\n"
        self.assert_clean(layers.foreign, {"src/platform/store/Sqlite.cpp": "#include <sqlite3.h>\n",
                                           "src/desktop/A.cpp": code + "#include <sys/stat.h>\n"})
        for header in ("sqlite3.h", "taglib/tag.h", "tag.h", "mpv/client.h", "unicode/ucol.h", "sodium.h"):
            with self.subTest(header):
                files = {"src/catalogue/A.h": f"{code}#include <{header}>\n"}
                self.assert_finds(layers.foreign, files, f"A.h:5: <{header}>")

    def test_widgets_stay_in_libraries_of_screens(self):
        def rule(tree):
            return layers.widgets(tree, {"QLabel", "QWidget"})
        cmake = ("quaverly_library(qv_x SOURCES Logic.h Logic.cpp USES qv_text {used})\n"
                 "quaverly_library(qv_x_screens SOURCES Form.h Form.cpp USES qv_x Qt6::Widgets)\n")
        label = "#include <QLabel>\n"
        sound = {"src/x/CMakeLists.txt": cmake.format(used="Qt6::Core"), "src/x/Form.cpp": label,
                 "src/x/Logic.cpp": "#include <QString>\n"}
        self.assert_clean(rule, sound)
        self.assert_finds(rule, {**sound, "src/x/Logic.h": label}, "src/x/Logic.h:1: <QLabel>")
        self.assert_finds(rule, {**sound, "src/x/Logic.cpp": "#include <QtWidgets/QLabel>\n"}, "Logic.cpp:1")
        for used in ("Qt6::Widgets", "qv_y_screens"):
            self.assert_finds(rule, {**sound, "src/x/CMakeLists.txt": cmake.format(used=used)},
                              f"CMakeLists.txt:1: qv_x is logic and may not use {used}")


class Architecture(RuleTest):
    SOURCES = {"src/main/A.cpp": '#include "desktop/B.h"\n#include "catalogue/C.h"\n', "src/desktop/B.h": ONCE,
               "src/catalogue/C.h": '#include "desktop/B.h"\n'}
    PICTURE = f"{len(layers.FLOORS) - 1}  main               catalogue\n 4  catalogue          desktop\n 3  desktop\n"

    def page(self, picture, words=""):
        text = f"# House\n\n{architecture.BEGIN}{picture}{architecture.END}{words}"
        return {**self.SOURCES, architecture.DOCUMENT: text}

    def test_the_picture_follows_the_sources(self):
        self.assert_clean(architecture.architecture, self.page(self.PICTURE, "Begin at `B.h` and `src/main/A.cpp`."))
        self.assert_finds(architecture.architecture, self.page(self.PICTURE.replace("catalogue\n", "desktop\n", 1)),
                          "run tools/floors")
        self.assert_finds(architecture.architecture, self.SOURCES, "no picture")

    def test_it_names_files_that_are_there(self):
        self.assert_finds(architecture.architecture, self.page(self.PICTURE, "`B.h`\n`a/C.h` `Gone.ui`"),
                          "md:11: there is no a/C.h", "there is no Gone.ui")


class Calls(RuleTest):
    def test_only_the_desktop_asks_and_waits(self):
        for call in ("QMessageBox::warning(this, a, b);", "QFileDialog dialog;", "QInputDialog::getText(a);",
                     "dialog.exec();", "QCoreApplication::processEvents();", "QEventLoop loop;",
                     "QDesktopServices::openUrl(url);", "QThread::msleep(5);"):
            with self.subTest(call):
                self.assert_finds(calls.desktop_only, {"src/intake/A.cpp": f"{HEAD}void f()\n{{\n{call}\n}}\n"},
                                  "src/intake/A.cpp:4: ")
                self.assert_clean(calls.desktop_only, {"src/desktop/A.cpp": call})

    def test_words_in_comments_and_texts_are_no_calls(self):
        text = 'f("exec()"); // no exec() here\n/* QEventLoop\n */ auto c = \'"\'; g(u"QMessageBox"_s);\nexecute(a);\n'
        self.assert_clean(calls.desktop_only, {"src/intake/A.cpp": text})
        self.assert_finds(calls.desktop_only, {"src/intake/A.cpp": text + "query.exec(a);\n"}, "A.cpp:5")

    def test_the_program_may_run_its_own_loop(self):
        loop = "return QApplication::exec();\n"
        self.assert_clean(calls.desktop_only, {"src/main/main.cpp": loop})
        self.assert_finds(calls.desktop_only, {"src/main/NameList.cpp": loop}, "NameList.cpp:1: exec")
        self.assert_finds(calls.desktop_only, {"src/main/main.cpp": loop + "form.exec();\n"}, "main.cpp:2: exec")


class Wording(RuleTest):
    def test_working_papers_and_machine_paths_are_found(self):
        papers = ("as the " + "spec" + "ification says", "see Pa" + "rt 4.2", "in desi" + "gn.md")
        places = ("/wo" + "rk/main/x", "/ro" + "ot/x", "http://de" + "b.debian.org/x", "/tmp/bash_jo" + "bs.0")
        for text in papers + places:
            with self.subTest(text):
                self.assert_finds(wording.wording, {"docs/a.md": f"first\n{text}\n"}, "docs/a.md:2")
        self.assert_clean(wording.wording, {"docs/a.md": "specific parts 4.2 of the network/rooted, homework\n"})

    def test_unfinished_work_is_found(self):
        for text in ("// TO" + "DO later", "GTEST_SK" + "IP();", "EXPECT_TRUE(tr" + "ue);", "TEST(A, DISABLE" + "D_b)"):
            with self.subTest(text):
                self.assert_finds(wording.undone, {"tests/a/ATest.cpp": HEAD + text + "\n"}, "ATest.cpp:2")
        self.assert_clean(wording.undone, {"src/a/A.cpp": "EXPECT_TRUE(trueName);\n"})

    def test_long_files_and_missing_heads_are_found(self):
        line = "int x;\n"
        self.assert_clean(wording.sizes, {"src/a/A.cpp": HEAD + line * 499, "src/a/A.h": ONCE})
        self.assert_finds(wording.sizes, {"src/a/A.cpp": HEAD + line * 500}, "501 lines")
        self.assert_finds(wording.sizes, {"src/a/A.h": HEAD}, "#pragma once")
        self.assert_finds(wording.sizes, {"src/a/A.cpp": line}, "licence")


class Screens(RuleTest):
    def form(self, body, tab_stops=(), head=""):
        stops = "".join(f"<tabstop>{name}</tabstop>" for name in tab_stops)
        return {"src/a/Form.ui": f'<ui version="4.0"><class>Form</class>\n<widget class="QDialog" name="Form">'
                f'<property name="windowTitle"><string>Form</string></property>{head}\n{body}\n</widget>'
                f"<tabstops>{stops}</tabstops></ui>\n"}

    @staticmethod
    def text(name, value, kind="string"):
        return f'<property name="{name}"><{kind}>{value}</{kind}></property>'

    def button(self, name, caption, more=""):
        return f'<widget class="QPushButton" name="{name}">{self.text("text", caption)}{more}</widget>'

    @staticmethod
    def column(*widgets):
        items = "".join(f"<item>{widget}</item>\n" for widget in widgets)
        return f'<layout class="QVBoxLayout" name="column">{items}</layout>'

    def test_a_sound_screen(self):
        label = (f'<widget class="QLabel" name="lblName">{self.text("text", "&amp;Name")}'
                 f'{self.text("buddy", "txtName", "cstring")}</widget>')
        body = self.column(label, '<widget class="QLineEdit" name="txtName"/>',
                           self.button("cmdCancel", "&amp;Cancel"), self.button("cmdOK", "Save &amp;&amp; &amp;close"))
        # Both "Cancel" and "close" bear a c, but only the first is its mnemonic by the second &.
        found = self.found(screens.screens, self.form(body, ["txtName", "cmdCancel", "cmdOK"]))
        self.assertEqual(len(found), 1, found)
        self.assertIn("Alt+C is both cmdCancel and cmdOK", found[0])
        self.assert_clean(screens.screens, self.form(body.replace("&amp;close", "c&amp;lose"),
                                                     ["txtName", "cmdCancel", "cmdOK"]))

    def test_names_and_captions(self):
        self.assert_finds(screens.screens, self.form(self.column(self.button("pushButton_2", "Go"))),
                          'a name of its own, not "pushButton_2"')
        self.assert_finds(screens.screens, self.form(self.column('<widget class="QLineEdit" name="txtName"/>')),
                          "src/a/Form.ui:3: txtName has no accessibleName")
        twice = self.column('<widget class="QFrame" name="rule"/>', '<widget class="QFrame" name="rule"/>')
        self.assert_finds(screens.screens, self.form(twice), "rule is there twice")

    def test_tab_order(self):
        pair = [self.button("cmdA", "A"), self.button("cmdB", "B")]
        self.assert_clean(screens.screens, self.form(self.column(*pair), ["cmdA", "cmdB"]))
        self.assert_finds(screens.screens, self.form(self.column(*pair), ["cmdB", "cmdA"]),
                          "comes to cmdB where the eye comes to cmdA")
        self.assert_finds(screens.screens, self.form(self.column(*pair), ["cmdA"]), "cmdB takes the focus")
        passed_over = self.button("cmdB", "B", self.text("focusPolicy", "Qt::NoFocus", "enum"))
        self.assert_clean(screens.screens, self.form(self.column(pair[0], passed_over), ["cmdA"]))
        grid = ('<layout class="QGridLayout" name="grid">'
                f'<item row="1" column="0">{pair[1]}</item><item row="0" column="3">{pair[0]}</item></layout>')
        self.assert_clean(screens.screens, self.form(grid, ["cmdA", "cmdB"]))
        self.assert_finds(screens.screens, self.form(grid, ["cmdB", "cmdA"]), "the eye comes to cmdA")

    def test_layouts(self):
        place = '<property name="geometry"><rect><x>1</x><y>1</y><width>9</width><height>9</height></rect></property>'
        self.assert_finds(screens.screens, self.form(self.button("cmdA", "A", place)),
                          "cmdA has a fixed place", "Form holds controls without a layout")
        self.assert_clean(screens.screens, self.form(self.column(self.button("cmdA", "A")), head=place))
        size = "".join(f'<property name="{each}Size"><size><width>9</width><height>9</height></size></property>'
                       for each in ("minimum", "maximum"))
        self.assert_finds(screens.screens, self.form(self.column(self.button("cmdA", "A", size))), "fixed size")

    def test_mnemonics_of_menus_count_for_themselves(self):
        def action(name, caption):
            return f'<action name="{name}">{self.text("text", caption)}</action>'

        def menu(name, title, *entries):
            added = "".join(f'<addaction name="{entry}"/>' for entry in entries)
            return f'<widget class="QMenu" name="{name}">{self.text("title", title)}{added}</widget>'
        def window(file_title, second_entry):
            bar = '<widget class="QMenuBar" name="bar">' + menu("mnuFile", file_title, "Add", "Close") + menu(
                "mnuHelp", "&amp;Help", "About") + '<addaction name="mnuFile"/><addaction name="mnuHelp"/></widget>'
            form = self.form(bar + action("Add", "&amp;Add") + action("Close", second_entry) + action("About", "&amp;About"))
            return {name: text.replace("QDialog", "QMainWindow") for name, text in form.items()}
        self.assert_clean(screens.screens, window("&amp;File", "&amp;Close"))
        self.assert_finds(screens.screens, window("&amp;File", "Cl&amp;ass"), "Alt+A is both Add and Close")
        self.assert_finds(screens.screens, window("T&amp;he file", "&amp;Close"), "Alt+H is both mnuFile and mnuHelp")

    def test_a_broken_file_is_a_finding(self):
        self.assert_finds(screens.screens, {"src/a/Form.ui": "<ui>\n<widget"}, "src/a/Form.ui:2")


class Site(RuleTest):
    def page(self, body, **others):
        return {"docs/site/help/a.html": f"<!DOCTYPE html><html><head><title>A</title></head>\n<body>{body}</body></html>",
                "docs/site/help/b.html": '<title>B</title><h2 id="here">B</h2>', "docs/site/c.png": "", **others}

    def test_links_lead_somewhere(self):
        sound = '<a href="b.html#here">b</a> <br> <img src="../c.png" alt="C"> <a href="https://a.example/">out</a>'
        self.assert_clean(site_pages.site, self.page(sound))
        for body, fault in (('<a href="d.html">', "d.html leads nowhere"), ('<a href="b.html#there">', "no such place"),
                            ('<a href="../../../src">', "leads nowhere"), ('<img src="/c.png" alt="C"><a>', "elsewhere"),
                            ('<img src="https://a.example/c.png" alt="C"><a>', "elsewhere")):
            with self.subTest(body):
                self.assert_finds(site_pages.site, self.page(f"{body}</a>"), fault)

    def test_tags_are_balanced(self):
        for body, fault in (("<p><b>x</p></b>", "closes nothing"), ("</p>", "</p> closes nothing")):
            with self.subTest(body):
                self.assertTrue(any(fault in each for each in self.found(site_pages.site, self.page(body))))
        self.assert_finds(site_pages.site, self.page('<img src="../c.png">'), "without words")
        css = {"docs/site/help/s.css": "body { background: url(x.png) }"}
        self.assert_finds(site_pages.site, self.page("", **css), "fetches nothing")


if __name__ == "__main__":
    unittest.main()
