"""The start of a program that has no data beside it, for the tests of the built program."""
import glob
import os
import shutil
import stat
import subprocess

from screen import PATIENCE, Atspi, Program

LABEL = Atspi.Role.LABEL


class FirstStartTests:
    def start_without_data(self):
        """In a folder with the program and its words alone, for a user whose data lie below the folder `data`."""
        folder = self.house.place + "bin/"
        os.mkdir(folder)
        for file in [*glob.glob(self.house.place + "QVM_*.DAT"), self.house.place + "qvm7702"]:
            shutil.copy(file, folder)
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
                           XDG_CONFIG_HOME=self.house.place + "config", XDG_DATA_HOME=self.house.place + "data")
        environment.setdefault("ASAN_OPTIONS", "detect_leaks=0")
        self.process = subprocess.Popen([folder + "qvm7702"], env=environment)
        self.house.programs.append(self.process)
        self.program = Program(self.process.pid)

    def test_makes_the_users_own_folder_at_its_first_start(self):
        self.start_without_data()
        self.program.wait(LABEL, "Nicht verbunden")
        for name, mode in (("", 0o700), ("/DAT", 0o755), ("/HIST", 0o755)):
            made = os.stat(self.house.place + "data/qvm7702" + name)
            self.assertTrue(stat.S_ISDIR(made.st_mode))
            self.assertEqual(stat.S_IMODE(made.st_mode), mode)
        self.assertFalse(os.path.exists(self.house.place + "bin/DAT"))

    def test_tells_of_a_file_that_has_the_name_of_the_users_folder(self):
        os.mkdir(self.house.place + "data")
        with open(self.house.place + "data/qvm7702", "w", encoding="utf-8") as file:
            file.write("mine")
        self.start_without_data()
        self.program.wait(LABEL, r"Die Verzeichnisse DAT und HIST (.|\n)*/data/qvm7702/\nNot a directory")
        self.program.press("OK")
        self.assertEqual(self.process.wait(PATIENCE), 1)
