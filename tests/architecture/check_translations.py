#!/usr/bin/env python3
"""Fails when the texts of the sources and the tables of translations differ.

usage: check_translations.py FOLDER LUPDATE...

LUPDATE... is the command that finds the texts, without its -ts; FOLDER holds the tables. Texts stand in
one context; every table but the English one translates each of them and nothing else, and a translation
has the placeholders, mnemonics and line breaks of its text. The English table holds the plural forms.
"""
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path
from typing import NamedTuple

CONTEXT = "Kestrio"
PLACEHOLDER = re.compile(r"%(?:L?\d{1,2}|L?n)")
MNEMONIC = re.compile(r"&[^&\s]")
UPDATE = "build the target update_translations and translate what is new"


class Message(NamedTuple):
    context: str
    source: str
    is_plural: bool
    is_finished: bool
    translations: list

    @property
    def key(self):
        return self.source, self.is_plural


def messages_of(document):
    for context in ElementTree.fromstring(document).iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = translation.findall("numerusform") or [translation]
            yield Message(context.findtext("name"), message.findtext("source"),
                          message.get("numerus") == "yes", translation.get("type") is None,
                          [form.text or "" for form in forms])


def source_faults(messages):
    for message in messages:
        if message.context != CONTEXT:
            yield f'the context of "{message.source}" is {message.context}, not {CONTEXT}'
        if message.source != message.source.strip():
            yield f'"{message.source}" is a fragment: write the whole text with %1'
        if "%n" in message.source and not message.is_plural:
            yield f'"{message.source}" has %n, but no number is given with it'


def marks(text):
    return (sorted(set(PLACEHOLDER.findall(text))), len(MNEMONIC.findall(text)), text.count("\n"))


def translation_faults(message):
    if not message.is_finished or not all(message.translations):
        yield f'"{message.source}" is not translated'
        return
    for translation in message.translations:
        if translation != translation.strip():
            yield f'"{translation}" begins or ends with a space'
        # One of the plural forms may say its number in words.
        if marks(translation) != marks(message.source) and not (
                message.is_plural and marks(translation.replace("%n", "")) == marks(message.source.replace("%n", ""))):
            yield f'"{translation}" has other placeholders, mnemonics or lines than "{message.source}"'


def table_faults(texts, table):
    wanted = {message.key for message in texts}
    held = {message.key for message in table}
    yield from (f'"{source}" is missing: {UPDATE}' for source, _ in sorted(wanted - held))
    yield from (f'"{source}" is in no source any more: {UPDATE}' for source, _ in sorted(held - wanted))
    for message in table:
        yield from translation_faults(message)


def found_texts(command):
    with tempfile.TemporaryDirectory() as folder:
        found = Path(folder) / "found.ts"
        subprocess.run([*command, "-silent", "-ts", str(found)], check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        return list(messages_of(found.read_text(encoding="utf-8")))


def check(folder, command):
    texts = found_texts(command)
    faults = list(source_faults(texts))
    if not texts:
        faults.append("no texts were found in the sources")
    tables = sorted(folder.glob("kestrio_*.ts"))
    if not tables:
        faults.append(f"there are no tables in {folder}")
    for path in tables:
        is_english = path.stem == "kestrio_en"
        wanted = [message for message in texts if message.is_plural or not is_english]
        table = list(messages_of(path.read_text(encoding="utf-8")))
        faults += [f"{path.name}: {fault}" for fault in table_faults(wanted, table)]
    return faults


if __name__ == "__main__":
    found = check(Path(sys.argv[1]), sys.argv[2:])
    print("\n".join(found) or "all texts are translated")
    sys.exit(1 if found else 0)
