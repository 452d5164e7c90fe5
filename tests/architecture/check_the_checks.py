#!/usr/bin/env python3
"""Holds the architecture checks against small trees and tables with known faults."""
import tempfile
import unittest
from pathlib import Path

import check_cmake
import check_includes
import check_paths
import check_qml
import check_translations


def tree(files):
    root = Path(tempfile.mkdtemp())
    for name, text in files.items():
        path = root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
    return root


class Includes(unittest.TestCase):
    def faults(self, **files):
        return check_includes.check(tree({name.replace("__", "/") + ".h": text
                                          for name, text in files.items()}))

    def test_downward_is_fine(self):
        self.assertEqual(self.faults(core__A="", render__B='#include "core/A.h"'), [])

    def test_upward_is_found(self):
        self.assertEqual(len(self.faults(core__A='#include "render/B.h"', render__B="")), 1)

    def test_circles_are_found(self):
        self.assertEqual(len(self.faults(core__A='#include "core/B.h"', core__B='#include "core/C.h"',
                                         core__C='#include "core/A.h"')), 1)

    def test_rooms_without_a_floor_are_found(self):
        self.assertEqual(len(self.faults(cellar__A="")), 1)


    def test_circles_of_folders_are_found(self):
        self.assertEqual(len(self.faults(app__in__A='#include "app/out/B.h"', app__out__B="",
                                         app__out__C='#include "app/in/D.h"', app__in__D="")), 1)


class Links(unittest.TestCase):
    files = {"core/A.h": "", "core/CMakeLists.txt": "kestrio_room(core)",
             "ui/B.h": "", "ui/CMakeLists.txt": "kestrio_room(ui)"}

    def faults(self, files):
        return check_cmake.check(tree(self.files | files))

    def test_links_and_includes_must_agree(self):
        library = {"library/CMakeLists.txt": "kestrio_room(library LINKS kestrio_core Qt6::DBus)"}
        includes = {"library/C.cpp": '#include "core/A.h"'}
        self.assertEqual(self.faults(library | includes), [])
        self.assertEqual(self.faults(library), ["kestrio_library links kestrio_core, which it does not include"])
        self.assertEqual(self.faults(library | includes | {"library/D.cpp": '#include "ui/B.h"'}),
                         ["kestrio_library does not link kestrio_ui, which it includes"])

    def test_views_and_inner_libraries_have_links_of_their_own(self):
        self.assertEqual(self.faults({
            "app/CMakeLists.txt": "kestrio_room(app)\nkestrio_views(app LINKS kestrio_core kestrio_ui)",
            "app/views/V.cpp": '#include "core/A.h"\n#include "ui/B.h"',
            "app/cli/CMakeLists.txt": "kestrio_room(cli LINKS kestrio_app kestrio_core)",
            "app/cli/W.cpp": '#include "core/A.h"\n#include "app/X.h"', "app/X.h": ""}), [])

    def test_files_of_other_rooms_are_found(self):
        taking = "qt_add_resources(kestrio_ui x FILES ${PROJECT_SOURCE_DIR}/%s)"
        for path, count in (("assets/a.svg", 0), ("src/ui/a.svg", 0), ("src/uis/a.svg", 1), ("src/core/a.svg", 1)):
            faults = self.faults({"ui/CMakeLists.txt": "kestrio_room(ui)\n" + taking % path})
            self.assertEqual(len(faults), count, path)
        self.assertEqual(len(self.faults({"ui/CMakeLists.txt": "kestrio_room(ui)\nfoo(../core/a.svg)"})), 1)
        self.assertEqual(len(self.faults({"ui/views/qml/A.qml": 'import "../../../core"'})), 1)


class Paths(unittest.TestCase):
    def test_dead_paths_are_found(self):
        root = tree({"README.md": "see `src/core/A.h` and [this](docs/x.md)", "ARCHITECTURE.md": "`src/gone/`",
                     "src/core/A.h": ""})
        self.assertEqual(check_paths.check(root), ["ARCHITECTURE.md: src/gone/", "README.md: docs/x.md"])


def table(*messages, context="Kestrio"):
    rows = "".join(f'<message{" numerus=" + chr(34) + "yes" + chr(34) if isinstance(translation, list) else ""}>'
                   f"<source>{source}</source>{translated(translation)}</message>"
                   for source, translation in messages)
    return list(check_translations.messages_of(f"<TS><context><name>{context}</name>{rows}</context></TS>"))


def translated(translation):
    if translation is None:
        return '<translation type="unfinished"/>'
    if isinstance(translation, list):
        return "<translation>" + "".join(f"<numerusform>{form}</numerusform>" for form in translation) + "</translation>"
    return f"<translation>{translation}</translation>"


class Translations(unittest.TestCase):
    def faults(self, texts, german):
        return [*check_translations.source_faults(texts), *check_translations.table_faults(texts, german)]

    def test_a_full_table_is_fine(self):
        whole = table(("Copy", "Kopieren"), ("%1 of %2", "%2, davon %1"), ("%n files", ["eine Datei", "%n Dateien"]))
        self.assertEqual(self.faults(whole, whole), [])

    def test_what_is_missing_unfinished_or_left_over_is_found(self):
        texts = table(("Copy", None), ("Cut", None))
        german = table(("Cut", None), ("Paste", "Einfügen"))
        self.assertEqual(len(self.faults(texts, german)), 3)

    def test_other_placeholders_mnemonics_and_lines_are_found(self):
        for source, translation in (("Open %1", "Öffnen"), ("&amp;Copy", "Kopieren"), ("a\nb", "a b"),
                                    ("%n files", ["%n Datei %1", "%n Dateien"])):
            texts = table((source, translation))
            self.assertEqual(len(self.faults(texts, texts)), 1, source)

    def test_fragments_and_foreign_contexts_are_found(self):
        texts = table(("Saved to ", "Gespeichert "), context="SavePanel")
        self.assertEqual(len(list(check_translations.source_faults(texts))), 2)


class QmlNames(unittest.TestCase):
    def test_unknown_names_of_own_types_and_maps_are_found(self):
        report = ('Warning: A.qml:3:9: Property "valu" not found on type "kestrio::SettingsText"\n'
                  "        text: field.valu\n"
                  'Warning: A.qml:4:9: Property "path" not found on type "QVariantMap"\n'
                  'Warning: A.qml:5:9: Property "hovered" not found on type "QQuickItem"\n'
                  "Warning: A.qml:6:9: Unqualified access\n")
        self.assertEqual([line.split()[0] for line in check_qml.faults(report)], ["A.qml:3:9:", "A.qml:4:9:"])

    def test_no_files_are_a_fault(self):
        self.assertEqual(len(check_qml.check("qmllint", "", tree({"app/A.h": ""}))), 1)


if __name__ == "__main__":
    unittest.main()
