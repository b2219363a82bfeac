#!/usr/bin/env python3
"""Whether the translations of the window are whole: translations_test.py UPDATE LUPDATE SOURCES

UPDATE is the script that gathers the texts. Every text has to be there and translated, with the same places for
values, the same blanks at its ends and a key of its own where the English has one; and no two things that are seen
together may have the same key.
"""

import collections
import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

FAULTS = []
KEY = re.compile(r"&(\w)")

# What is seen together, and is not one form: each by the contexts of its texts.
WINDOWS = [
    ["ui::ReportWindow", "ui::ReportTab", "ui::LinkCheckPanel"],
    ["ui::LinkCheckSheet"],
    ["crawler::ProgressSheet"],
    ["ui::UpdateSheet"],
]
# These stand in a context's list of texts and in no window of it.
ELSEWHERE = {"Show in &Pages", "&Resume"}


def fault(language, text, what):
    FAULTS.append(f"{language}: {text!r}: {what}")


class Text:
    def __init__(self, context, message):
        self.context = context
        self.source = message.findtext("source")
        self.comment = message.findtext("comment")
        translation = message.find("translation")
        self.state = translation.get("type")
        forms = [form.text or "" for form in translation.findall("numerusform")]
        self.is_counted = message.get("numerus") == "yes"
        self.forms = forms if self.is_counted else [translation.text or ""]
        self.name = (context, self.source, self.comment, self.is_counted)


def read(path):
    texts = []
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            texts.append(Text(context.findtext("name"), message))
    return texts


def check_gathered(language, path, gathered):
    known = {text.name for text in read(path)}
    present = {text.name for text in read(gathered)}
    for name in sorted(present - known, key=str):
        fault(language, name[1], f"not in {os.path.basename(path)} yet: build the target update_translations")
    for name in sorted(known - present, key=str):
        fault(language, name[1], "nothing says this any more: build the target update_translations")


def check_form(language, text, form, is_first):
    source = text.source
    places = lambda of: sorted(re.findall(r"%[1-9]", of))
    if places(form) != places(source):
        fault(language, source, f"its values differ: {form!r}")
    # The form for one may say it in a word.
    if text.is_counted and not is_first and not re.search("%L?n", form):
        fault(language, source, f"the number is missing: {form!r}")
    for end in (r"^\s*", r"\s*$", r"(\.\.\.)?$"):
        if re.search(end, form).group() != re.search(end, source).group():
            fault(language, source, f"begins or ends in another way: {form!r}")
    if bool(KEY.search(form)) != bool(KEY.search(source)):
        fault(language, source, f"a key is missing, or too many: {form!r}")


def check_texts(language, texts):
    for text in texts:
        if text.state is not None or not all(text.forms):
            fault(language, text.source, text.state or "empty")
            continue
        for place, form in enumerate(text.forms):
            check_form(language, text, form, place == 0)


def key_of(text):
    found = KEY.search(text)
    return found.group(1).lower() if found else None


def check_keys(language, where, texts, taken=""):
    keys = collections.defaultdict(set)
    for text in texts:
        if key_of(text):
            keys[key_of(text)].add(text)
    for key, same in keys.items():
        if len(same) > 1 or key in taken:
            fault(language, " / ".join(sorted(same)), f"the key {key.upper()} is taken in {where}")


def strings_of(element, name):
    return [each.findtext("string") for each in element.findall("property") if each.get("name") == name]


def check_menus(language, form, say):
    """Each menu, and the bar of them, whose keys are given back."""
    texts = {a.get("name"): "".join(strings_of(a, "text")) for a in form.iter("action")}
    menus = [widget for widget in form.iter("widget") if widget.get("class") == "QMenu"]
    texts.update({menu.get("name"): "".join(strings_of(menu, "title")) for menu in menus})
    bar = ""
    for menu in [widget for widget in form.iter("widget") if widget.get("class") in ("QMenu", "QMenuBar")]:
        entries = [say(texts.get(each.get("name"), "")) for each in menu.findall("addaction")]
        check_keys(language, menu.get("name"), entries)
        if menu.get("class") == "QMenuBar":
            bar = "".join(filter(None, map(key_of, entries)))
    return bar


def check_all_keys(language, sources, texts):
    by_context = collections.defaultdict(dict)
    for text in texts:
        by_context[text.context][text.source] = text.forms[0] if language != "en" else text.source
    window = ElementTree.parse(os.path.join(sources, "app", "main_window.ui")).getroot()
    bar = check_menus(language, window, lambda text: by_context["MainWindow"].get(text, text))
    for path in glob.glob(os.path.join(sources, "ui", "*.ui")):
        form = ElementTree.parse(path).getroot()
        context = by_context[form.findtext("class")]
        shown = [context.get(each.text, each.text) for each in form.iter("string") if each.text]
        check_keys(language, os.path.basename(path), set(shown), bar)
    for contexts in WINDOWS:
        shown = [form for each in contexts for source, form in by_context[each].items() if source not in ELSEWHERE]
        check_keys(language, ", ".join(contexts), shown)
    captions = re.findall(r'\.caption = Phrases::noop\("([^"]+)"\)',
                          open(os.path.join(sources, "store", "site_settings.h"), encoding="utf-8").read())
    shown = [by_context["Phrases"].get(each, each) for each in captions]
    check_keys(language, "the scan settings", shown + list(by_context["crawler::PasswordRow"].values()))


def main():
    update, lupdate, sources = sys.argv[1:]
    folder = os.path.join(sources, "app", "translations")
    with tempfile.TemporaryDirectory() as fresh:
        for path in glob.glob(os.path.join(folder, "*.ts")):
            shutil.copy(path, fresh)
        subprocess.run([update, lupdate, sources, fresh], check=True, timeout=300)
        for path in sorted(glob.glob(os.path.join(folder, "*.ts"))):
            language = re.search(r"_(\w+)\.ts$", path).group(1)
            check_gathered(language, path, os.path.join(fresh, os.path.basename(path)))
            texts = read(path)
            check_texts(language, texts)
            if language != "en":
                check_all_keys(language, sources, texts)
                check_all_keys("en", sources, texts)
    for each in FAULTS:
        print(each)
    sys.exit(1 if FAULTS else 0)


main()
