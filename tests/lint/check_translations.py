#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds resources/translations against what is to be translated: every text of the window's sources, as lupdate finds them, and every
name in the catalogue of presets has a translation in each language, with the same places for numbers and names, and no translation
stands there for a text that is gone. The words of the sentences that the window translates for others are found in the sources
that say them, and what those note has a form."""
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

import noted_sentences

LANGUAGES = ("de", "es", "ja", "zh")
SOURCES = ("apps/dialog", "apps/ExportCore")
PRESETS = "editorPresets"
# Where several things of a number have the same form, Qt wants that one alone.
FORMS = {"en": 2, "de": 2, "es": 2, "ja": 1, "zh": 1}
PLACE = re.compile(r"%(?:\d+|n)")
SENTENCES = ("apps/dialog/Models/SentenceForms.h", "apps/dialog/Models/NoteForms.h")
SPEAKERS = ("apps/ExportCore", "multimediacore/src", "editor/src")
LITERALS = re.compile(r'"(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*')
FORMS_OF_SENTENCES = re.compile(r'QT_TRANSLATE_NOOP\(\s*((?:"(?:[^"\\\n]|\\.)*"[\s,]*|//[^\n]*\n\s*)+)\)')
# What the system and FFmpeg's libraries say.
OTHERS = {os.strerror(number) for number in range(1, 134)} | {"Invalid data found when processing input", "End of file"}


class Message:
    def __init__(self, context, element):
        comment = element.find("comment")
        self.key = (context, element.find("source").text, comment.text if comment is not None else "")
        self.counts = element.get("numerus") == "yes"
        translation = element.find("translation")
        if translation is None or translation.get("type"):
            self.texts = []
        elif self.counts:
            self.texts = [form.text or "" for form in translation.findall("numerusform")]
        else:
            self.texts = [translation.text or ""]


def messages_of(text):
    root = xml.etree.ElementTree.fromstring(text)
    return [Message(context.find("name").text, message)
            for context in root.findall("context") for message in context.findall("message")]


def names_in(catalogue):
    names = {tag["name"] for tag in catalogue["tags"]}
    for preset in catalogue["presets"]:
        names |= {preset["id"], *preset.get("qualityModifiers", {})}
    return names


def other_names(top):
    """What the window names beside the catalogue: the tag of users' own presets, and the endings."""
    own = re.search(r'TAG_OWN_PRESETS = "([^"]+)"', (top / "editor/src/library/EditorPreset/PresetStorage.cpp").read_text())
    return {own.group(1)} | {picture.parent.name for picture in (top / "resources/branding").glob("*/outro.png")}


def faults_of(language, wanted, present):
    """`wanted` are keys; what is wrong with the messages that are present."""
    known = [message.key for message in present]
    faults = [f"{language}: missing: {key}" for key in sorted(wanted - set(known))]
    faults += [f"{language}: of no use any more: {key}" for key in sorted(set(known) - wanted)]
    faults += [f"{language}: twice: {key}" for key in sorted({key for key in known if known.count(key) > 1})]
    for message in present:
        if len(message.texts) != (FORMS[language] if message.counts else 1) or not all(message.texts):
            faults.append(f"{language}: not translated: {message.key}")
        # "One second" needs no number.
        places = set(PLACE.findall(message.key[1])) - ({"%n"} if message.counts else set())
        for text in message.texts:
            if set(PLACE.findall(text)) - ({"%n"} if message.counts else set()) != places:
                faults.append(f"{language}: other places than in {message.key}: {text}")
    return faults


def literals_of(text):
    """Those that stand side by side are one."""
    return ["".join(re.findall(r'"((?:[^"\\]|\\.)*)"', run)).replace('\\"', '"') for run in LITERALS.findall(text)]


def forms_of(text):
    return [literals[1] for literals in map(literals_of, FORMS_OF_SENTENCES.findall(text)) if len(literals) == 2]


def unsaid(forms, said):
    """Forms with words that nobody says; `said` is all literals of the speakers."""
    faults = []
    for form in forms:
        words = [part.strip(" \"':;,.()") for part in PLACE.split(form)]
        # Several of something are said by adding an s.
        if form not in OTHERS and not all(word in said or word.removesuffix("s") in said for word in words):
            faults.append(f"nobody says: {form}")
    return faults


def sentence_faults(top):
    said = "\n".join(literal for folder in SPEAKERS for path in sorted((top / folder).rglob("*"))
                     if path.suffix in (".h", ".cpp") for literal in literals_of(path.read_text()))
    forms = [form for file in SENTENCES for form in forms_of((top / file).read_text())]
    return unsaid(forms, said) + noted_sentences.faults(top, forms) if len(forms) > 50 else [f"only {len(forms)} forms of sentences were found"]


def texts_of(top, lupdate):
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "found.ts"
        # What it says of the sources' newer C++ leaves out none of the texts; a comparison would show it.
        subprocess.run([lupdate, "-silent", "-locations", "none", "-I", top / "apps", *(top / folder for folder in SOURCES),
                        "-ts", file], check=True, stderr=subprocess.DEVNULL)
        return {message.key for message in messages_of(file.read_text())}


def self_test():
    def present(body, counts=""):
        return messages_of(f"<TS><context><name>C</name><message{counts}>{body}</message></context></TS>")

    good = present("<source>%1 of %2</source><translation>%2: %1</translation>")
    key = ("C", "%1 of %2", "")
    assert faults_of("de", {key}, good) == []
    assert len(faults_of("de", {key, ("C", "new", "")}, good)) == 1
    assert len(faults_of("de", set(), good)) == 1
    assert len(faults_of("de", {key}, good + good)) == 1
    assert len(faults_of("de", {key}, present("<source>%1 of %2</source><translation>%1</translation>"))) == 1
    assert len(faults_of("de", {key}, present('<source>%1 of %2</source><translation type="unfinished"/>'))) == 1
    many = present("<source>%n</source><translation><numerusform>eins</numerusform></translation>", ' numerus="yes"')
    assert len(faults_of("de", {("C", "%n", "")}, many)) == 1
    assert faults_of("ja", {("C", "%n", "")}, many) == []
    catalogue = {"tags": [{"name": "web"}], "presets": [{"id": "a", "qualityModifiers": {"high": {}}}, {"id": "b"}]}
    assert names_in(catalogue) == {"web", "a", "b", "high"}
    assert literals_of('Fail("Cannot " // why\n + x, "a"\n  "b\\"c");') == ["Cannot ", 'ab"c']
    assert forms_of('QT_TRANSLATE_NOOP("S", "Cannot \\"%1\\""),\nQT_TRANSLATE_NOOP("S",\n "no (%1)"),\n') == ['Cannot "%1"', "no (%1)"]
    assert unsaid(['Cannot "%1": %2', "%1 tracks", "Permission denied"], "Cannot \n track ") == []
    assert forms_of('QT_TRANSLATE_NOOP(\n "S", "a; b %1"\n "(c)"),\n // why\n QT_TRANSLATE_NOOP("S",\n // why\n "d"),\n') == ["a; b %1(c)", "d"]
    noted_sentences.self_test()
    assert unsaid(['Cannot "%1"', "Must"], "Can not") == ['nobody says: Cannot "%1"', "nobody says: Must"]


def main():
    if sys.argv[1:] == ["--self-test"]:
        self_test()
        return 0
    top, lupdate = pathlib.Path(sys.argv[1]), sys.argv[2]
    texts = texts_of(top, lupdate)
    names = names_in(json.loads((top / "resources/presets/catalogue.json").read_text())) | other_names(top)
    if len(texts) < 100 or len(names) < 10:
        print(f"only {len(texts)} texts and {len(names)} names were found")
        return 1
    wanted = texts | {(PRESETS, name, "") for name in names}
    faults = sentence_faults(top)
    for language in LANGUAGES:
        file = top / f"resources/translations/editor-export_{language}.ts"
        faults += faults_of(language, wanted, messages_of(file.read_text()))
    # In English that alone which has two forms, or is said otherwise in the window.
    english = messages_of((top / "resources/translations/editor-export_en.ts").read_text())
    faults += faults_of("en", wanted & {message.key for message in english}, english)
    print("\n".join(faults) or f"{len(wanted)} texts in {len(LANGUAGES)} languages")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
