"""Every text of the program and of its desktop files is translated into every language, in the script of
that language, and keeps the parts that must not be translated."""
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
NOT_LATIN = "[Ѐ-ӿぁ-ヿ一-鿿]"
LCONVERT = subprocess.check_output(["qmake6", "-query", "QT_INSTALL_BINS"], text=True).strip() + "/lconvert"


def texts(path):
    """The messages of a .ts or .po file by their source text."""
    ts = subprocess.check_output([LCONVERT, path, "-of", "ts"])
    return {message.findtext("source"): message.find("translation")
            for message in xml.fromstring(ts).iter("message")}


def fault(language, source, translation, english):
    text = translation.text or ""
    if translation.get("type") or not text:
        return "not translated"
    if KEPT.findall(source) != KEPT.findall(text):
        return f"{KEPT.findall(source)} is lost"
    own = LETTERS.get(language, "[a-z]")
    if re.search(NOT_LATIN, re.sub(own, "", text, flags=re.IGNORECASE)):
        return "letters of another language"
    if source not in NAMES and not re.search(own, text, re.IGNORECASE):
        return "not in the letters of the language"
    if source not in NAMES and language != "en" and text == english:
        return "still in English"
    return None


faults = []
folder = pathlib.Path(__file__).parent.parent / "translations"
english = {source: translation.text for source, translation in texts(folder / "vrktrk_en.ts").items()}
with tempfile.TemporaryDirectory() as updated:
    files = [pathlib.Path(shutil.copy(file, updated)) for file in folder.glob("*.[tp][so]")]
    subprocess.run([folder / "update", updated], check=True, stdout=subprocess.DEVNULL)
    for file in files:
        now = texts(file)
        faults += [f"{file.name}: no such text any more: {source}"
                   for source in texts(folder / file.name).keys() - now]
        for source, translation in now.items():
            wrong = fault(file.stem[-2:], source, translation, english.get(source, source))
            faults += [f"{file.name}: {wrong}: {source}"] if wrong else []
sys.exit("\n".join(faults) or (None if len(files) >= 25 and now else "nothing to look at"))
