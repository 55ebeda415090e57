"""A GPS receiver on a real line and a radio program as a process of its own, beside the real program."""

import importlib.util
import subprocess

from lib import ROOT, ScreenTest, wait_for

source = importlib.util.spec_from_file_location("makedrive", ROOT / "demo" / "make-drive.py")
makedrive = importlib.util.module_from_spec(source)
source.loader.exec_module(makedrive)


class Receiver(ScreenTest):
    def plug_in(self, program, speed):
        """A receiver of a car at that speed; ends with the test."""
        log = program.folder / f"{speed}.nmea"
        log.write_text(makedrive.burst(1, [48.1173, -11.5], speed, 84.4, 545.4, True), newline="")
        receiver = subprocess.Popen([ROOT / "tools" / "drive", program.folder / "gps", log])
        self.addCleanup(receiver.wait)
        self.addCleanup(receiver.terminate)
        return receiver

    def hears(self, percent):
        return f" {percent}%" in self.desk.call("exec", "pactl", "get-sink-volume", "null")

    def test_screen_needle_and_volume_follow_it_through_a_pulled_plug(self):
        program = self.program({"gps": {"COMPORT": 5, "USESPEEDBASEDVOLUME": 1}})
        (program.folder / "devices.ini").write_text(f"[ports]\n5={program.folder}/gps\n")
        receiver = self.plug_in(program, 65)
        wait_for((program.folder / "gps").is_symlink, "the receiver")
        program.start()
        program.do("gps.show")
        wait_for(lambda: program.get("**GPS_SPEED**") == "65 km/h", "the speed")
        self.assertEqual(program.get("**GPS_POSITION**"), "4807.038 N, 01130.000 W")
        wait_for(lambda: self.hears(65), "the volume of 65 km/h")
        self.desk.shot("gps")
        receiver.terminate()
        wait_for(lambda: program.get("**GPS_SATNUM**") == "!GPS", "the silence to be noticed")
        self.assertEqual(program.get("**GPS_SPEED**"), "65 km/h")
        self.plug_in(program, 130)
        program.do("mainmenu.show")
        wait_for((program.folder / "gps").is_symlink, "the receiver")
        program.do("gps.show")
        wait_for(lambda: program.get("**GPS_SPEED**") == "130 km/h", "the speed")
        self.assertIsNone(program.dialog())
        self.assertTrue(self.hears(100))
        self.assertEqual(program.end(), 0)


class Radio(ScreenTest):
    def rc(self, program, word):
        tool = program.folder / "Radiator" / "Add-ons" / "Command line" / "rc"
        return self.desk.call("exec", tool, word, check=False)

    def told(self, program):
        return [line.partition(" ms ")[2] for line in self.rc(program, "log").splitlines()]

    def test_a_frequency_is_typed_stored_and_recalled(self):
        program = self.program({})
        program.write_settings({"radio": {"RADIATORFOLDER": program.folder / "Radiator"}})
        program.start()
        self.addCleanup(self.rc, program, "quit")
        program.do("radio.show")
        words = ["mute"] * 20 + ["fr8700"]
        wait_for(lambda: self.told(program) == words, "the start of the radio", 15)
        for digit in "10450":
            program.tap_tag(f"radio.frequency.{digit}")
        wait_for(lambda: self.rc(program, "status") == "104.50 MHz, muted", "the typed frequency")
        program.tap_tag("radio.mute")
        wait_for(lambda: self.rc(program, "status") == "104.50 MHz", "the sound")
        self.desk.shot("radio")
        program.tap_tag("radio.station.3", hold=2300)
        wait_for(lambda: program.dialog() == "messagebox", "the message about the station")
        program.tap_tag("messagebox.ok")
        wait_for(lambda: program.dialog() is None, "the end of the message")
        program.tap_tag("radio.tune.up")
        wait_for(lambda: self.rc(program, "status") == "105.50 MHz", "the next frequency")
        program.tap_tag("radio.station.3")
        words += ["fr10450", "unmute", "fr10550", "fr10450"]
        wait_for(lambda: self.told(program) == words, "the station")
        self.assertEqual(program.get("**RADIOFREQUENCY**"), "104.50")
        self.assertEqual(program.end(), 0)
        self.assertEqual((program.setting("STATION_3"), program.setting("LASTFREQUENCY")), ("10450", "10450"))
        self.assertEqual(self.rc(program, "status"), "104.50 MHz", "it goes on without us")
