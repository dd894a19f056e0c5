"""test_translations.py TS-FOLDER LUPDATE-COMMAND...: every text of the program is translated into every
language, in that language's letters, and keeps what the program or a reader needs of it."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

# A format's extension, a place for a file name or anything that looks like one, a tag, an address.
KEPT = re.compile(r"\(\*?\.\w+\)$|%.?|<[^>]+>|https?://\S+")
NAMES = "VrkTrk", "GoogleEarth KML (.kml)"  # the same in any language
LETTERS = {"ru": "[а-яё]", "uk": "[а-щьюяґєії]", "zh": "[一-鿿]", "ja": "[ぁ-ヿ一-鿿]"}
NOT_LATIN = "[Ѐ-ӿ぀-ヿ一-鿿]"


def texts(ts):
    return {(context.findtext("name"), message.findtext("source")): message.find("translation")
            for context in xml.parse(ts).iter("context") for message in context.iter("message")}


def fault(language, source, translation, english):
    text = translation.text or ""
    own = LETTERS.get(language, "[a-z]")
    if translation.get("type") or not text:
        return "not translated"
    if KEPT.findall(source) != KEPT.findall(text):
        return f"{KEPT.findall(source)} is lost"
    if re.search(NOT_LATIN, re.sub(LETTERS.get(language, "$"), "", text, flags=re.IGNORECASE)):
        return "letters of another language"
    if source not in NAMES and not re.search(own, text, re.IGNORECASE):
        return "not in the letters of the language"
    if source not in NAMES and language != "en" and text == english:
        return "still in English"
    return None


faults = []
folder, *lupdate = sys.argv[1:]
english = texts(f"{folder}/vrktrk_en.ts")
languages = sorted(pathlib.Path(folder).glob("vrktrk_*.ts"))
with tempfile.TemporaryDirectory() as copies:
    for ts in languages:
        copy = shutil.copy(ts, copies)
        subprocess.run([*lupdate, "-ts", copy], check=True, stdout=subprocess.DEVNULL)
        now = texts(copy)
        faults += [f"{ts.name}: no such text any more: {key}" for key in texts(ts).keys() - now]
        for key, translation in now.items():
            wrong = fault(ts.stem[-2:], key[1], translation, english[key].text)
            faults += [f"{ts.name}: {wrong}: {key}"] if wrong else []
sys.exit("\n".join(faults) or (None if len(languages) >= 13 and now else "nothing to look at"))
