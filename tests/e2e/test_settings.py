"""What the program remembers, what it needs to start, and which language it uses."""
import configparser
import os
import pathlib
import re
import shutil
import subprocess
import unittest

import desktop

KEYS = "winLeft", "winTop", "winWidth", "winHeight", "fullscreen"
STOP = "File %s not found. Please reinstall the application.\n"


def xdotool(*arguments):
    return subprocess.run(["xdotool", *arguments], check=True, capture_output=True, text=True).stdout


def place_of(window):
    return " ".join(re.findall(r"=(-?\d+)", xdotool("getwindowgeometry", "--shell", window))[1:5])


def comes_to(place):
    """A step of a session: wait until the frame has this place and size on the screen."""
    return lambda program, window: desktop.wait_for(
        lambda: f"{place}, not {place_of(window)}", lambda: place_of(window) == place)


def move(place):
    def act(program, window):
        x, y, width, height = place.split()
        xdotool("windowmove", window, x, y, "windowsize", window, width, height)
        comes_to(place)(program, window)
    return act


def press(button, place):
    return lambda program, window: (program.press("push button", button),
                                    comes_to(place)(program, window))


class SettingsTest(desktop.Case):
    def setUp(self):
        super().setUp()
        (self.folder / "a.vrk3").touch()
        self.user_file = self.home / ".config/Ostravane/settings.ini"

    def session(self, act=lambda program, window: None, **environment):
        """Starts the program, performs the steps and cancels. Returns the stored geometry."""
        with self.start("a.vrk3", **environment) as program:
            program.find("filler", "VrkTrk", states=["ACTIVE"])
            act(program, xdotool("search", "--onlyvisible", "--name", "^VrkTrk$").strip())
            # A key arrives after all changes of the window. A press through the bus may arrive earlier.
            program.keys("filler", "VrkTrk", "Escape")
        settings = configparser.ConfigParser()
        settings.read(self.user_file)
        return " ".join(settings["vrktrk.session"][key] for key in KEYS)

    def test_comes_back_as_it_was(self):
        first, moved, whole = "100 100 480 220", "210 133 515 301", "0 0 1280 1024"
        for act, stored in ((comes_to(first), first + " false"), (move(moved), moved + " false"),
                            (press("Maximize", whole), moved + " true"),
                            (comes_to(whole), moved + " true"),
                            (press("Restore", moved), moved + " false"),
                            (comes_to(moved), moved + " false")):
            self.assertEqual(self.session(act), stored)

    def test_never_out_of_reach(self):
        self.session()
        most, least = str(2 ** 31 - 1), str(-2 ** 31)
        for stored, place in (([most] * 4, "0 0 1280 1024"), ([least, "20", most, "300"], "0 20 1280 300"),
                              (["-300", "1000", "480", "220"], "-300 1000 480 220")):
            self.user_file.write_text("[vrktrk.session]\n" + "".join(map("{}={}\n".format, KEYS, stored)))
            with self.subTest(stored):
                self.assertEqual(self.session(comes_to(place)), place + " false")

    def test_does_not_creep(self):
        for scale in "1", "2":
            first = self.session(move("211 133 998 576"), QT_SCALE_FACTOR=scale)
            later = [self.session(QT_SCALE_FACTOR=scale) for _ in range(3)]
            self.assertEqual(later, 3 * [first])

    def test_leaves_the_settings_alone(self):
        def give_up():
            with self.start() as program:
                program.press("push button", "Cancel")

        give_up()
        self.assertFalse(self.user_file.parent.exists())
        self.session()
        before = self.user_file.read_bytes(), self.user_file.stat()
        give_up()
        self.assertEqual((self.user_file.read_bytes(), self.user_file.stat()), before)
        self.user_file.chmod(0o444)
        self.session(move("210 133 515 301"))
        self.assertEqual(self.user_file.read_bytes(), before[0])

    def test_first_start(self):
        """With and without the user's file, the installed file and a home directory."""
        built = os.environ["VRKTRK_PROGRAM"]
        self.addCleanup(os.environ.update, VRKTRK_PROGRAM=built)
        os.environ["VRKTRK_PROGRAM"] = shutil.copy(built, self.folder)
        installed = self.folder / "settings.ini"
        for user, beside, home, starts in (
                ("", "", self.home, False), ("", "[a]\nb=1\n", "/proc/none", False),
                ("", "[a]\nb=1\n", self.home, True), ("[a]\nb=2\n", "[a]\nb=1\n", self.home, True),
                ("[a]\nb=2\n", "", self.home, True)):
            for path, text in (self.user_file, user), (installed, beside):
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text) if text else path.unlink(missing_ok=True)
            with self.subTest(user=user, beside=beside, home=home):
                if starts:
                    self.assertEqual(self.session(), "100 100 480 220 false")
                    self.assertIn(user or beside, self.user_file.read_text())
                    self.assertIn("options_version=\n", self.user_file.read_text())
                else:
                    ended = subprocess.run([os.environ["VRKTRK_PROGRAM"], "a.vrk3"], cwd=self.folder,
                                           env={**os.environ, "HOME": str(home)}, text=True,
                                           capture_output=True, timeout=desktop.PATIENCE)
                    self.assertEqual((ended.returncode, ended.stderr), (1, STOP % installed))

    def test_shows_version_and_icon(self):
        beside = configparser.ConfigParser()
        beside.read(pathlib.Path(os.environ["VRKTRK_PROGRAM"]).with_name("settings.ini"))

        def look(program, window):
            program.find("label", f"VrkTrk \n{beside['common']['options_version']}")
            icon = subprocess.check_output(["xprop", "-id", window, "-f", "_NET_WM_ICON", "32c",
                                            "_NET_WM_ICON"], text=True)
            self.assertIn("= 255, 255, ", icon[:50])  # The window manager's own icon is smaller.
        self.session(look)

    def test_languages(self):
        """The program's texts and Qt's, and Cyrillic letters only where they belong. The
        program has no translation for C, Greek and Finnish; Qt has one for Finnish."""
        english = "GPS Exchange Format (.gpx)", "Save"
        for locale, gpx, save, cancel in (
                ("C", *english, "Cancel"), ("el_GR", *english, "Cancel"), ("fi_FI", *english, "Peru"),
                ("ru_RU", "Формат GPX (.gpx)", "Сохранить", "Отмена"),
                ("uk_UA", "Формат GPX (.gpx)", "Зберегти", "Скасувати"),
                ("de_AT", "GPX-Format (.gpx)", "Speichern", "Abbrechen"),
                ("fr_FR", "Format GPX (.gpx)", "Enregistrer", "Annuler"),
                ("es_ES", "Formato GPX (.gpx)", "Guardar", "Cancelar"),
                ("it_IT", "Formato GPX (.gpx)", "Salva", "Annulla"),
                ("pt_BR", "Formato GPX (.gpx)", "Salvar", "Cancelar"),
                ("pl_PL", "Format GPX (.gpx)", "Zapisz", "Anuluj"),
                ("cs_CZ", "Formát GPX (.gpx)", "Uložit", "Zrušit"),
                ("tr_TR", "GPX biçimi (.gpx)", "Kaydet", "İptal"),
                ("zh_CN", "GPX 格式 (.gpx)", "保存", "取消"),
                ("ja_JP", "GPX 形式 (.gpx)", "保存", "キャンセル")):
            # Qt uses only the name of the locale, so the data of any other locale is good enough.
            if locale != "C":
                (self.home / f"{locale}.utf8").symlink_to("/usr/lib/locale/C.utf8")
            with (self.subTest(locale), self.start("a.vrk3", LANG=f"{locale}.UTF-8",
                                                   LOCPATH=str(self.home)) as program):
                program.press("radio button", gpx)
                program.keys("filler", "VrkTrk", "Return")
                program.find("dialog", save)
                self.assertEqual(program.find("text").get_text(0, -1), "a.gpx")
                texts = " ".join(widget.get_name() for _, widget in program.widgets())
                self.assertEqual(bool(re.search("[а-яё]", texts, re.IGNORECASE)),
                                 locale in ("ru_RU", "uk_UA"))
                program.press("push button", cancel)


unittest.main()
