"""test_translations.py TS-FOLDER LUPDATE-COMMAND...: every text of the program has a translation in
every language, and what the program or a reader needs of the text comes through in it."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

# A format's extension, a place for a file name or anything that looks like one, a tag, an address.
KEPT = re.compile(r"\(\*?\.\w+\)$|%.?|<[^>]+>|https?://\S+")


def texts(ts):
    return {(context.findtext("name"), message.findtext("source")): message.find("translation")
            for context in xml.parse(ts).iter("context") for message in context.iter("message")}


faults = []
folder, *lupdate = sys.argv[1:]
languages = sorted(pathlib.Path(folder).glob("vrktrk_*.ts"))
with tempfile.TemporaryDirectory() as copies:
    for ts in languages:
        copy = shutil.copy(ts, copies)
        subprocess.run([*lupdate, "-ts", copy], check=True, stdout=subprocess.DEVNULL)
        now = texts(copy)
        faults += [f"{ts.name}: no such text any more: {key}" for key in texts(ts).keys() - now]
        for key, translation in now.items():
            text = translation.text or ""
            if translation.get("type") or not text:
                faults.append(f"{ts.name}: not translated: {key}")
            elif KEPT.findall(key[1]) != KEPT.findall(text):
                faults.append(f"{ts.name}: {KEPT.findall(key[1])} is lost from {key}")
            elif ts.stem.endswith("_en") and re.search("[а-яё]", text, re.IGNORECASE):
                faults.append(f"{ts.name}: not English: {key}")
            elif (ts.stem.endswith("_ru") and key[1] not in ("VrkTrk", "GoogleEarth KML (.kml)")
                  and not re.search("[а-яё]", text, re.IGNORECASE)):
                faults.append(f"{ts.name}: not Russian: {key}")
sys.exit("\n".join(faults) or (None if len(languages) >= 2 and now else "nothing to look at"))
