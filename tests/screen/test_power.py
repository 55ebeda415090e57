"""Sleep, restart and the end of the session, with a made-up login service on a bus of its own."""

import os
import signal
import socket
import subprocess
import time
import unittest
from pathlib import Path

import dbus
from lib import Desk, ScreenTest, Zvr, wait_for

MANAGER = "org.freedesktop.login1.Manager"


class LoginService:
    """What the machine's own would be, without a machine that sleeps."""

    def __init__(self, desk, can_hibernate="yes"):
        self.address = "unix:path=" + desk.call("exec", "printenv", "XDG_RUNTIME_DIR") + "/bus"
        self.process = desk.spawn("env", f"DBUS_SYSTEM_BUS_ADDRESS={self.address}", "/usr/bin/python3", "-m", "dbusmock",
                                  "--template", "logind", "--parameters", f'{{"CanHibernate": "{can_hibernate}"}}',
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.bus = dbus.bus.BusConnection(self.address)
        wait_for(lambda: self.bus.name_has_owner("org.freedesktop.login1"), "the login service")
        self.object = self.bus.get_object("org.freedesktop.login1", "/org/freedesktop/login1", introspect=False)

    def holds_it(self):
        """The program wants to be told before the machine sleeps."""
        held = self.object.ListInhibitors(dbus_interface=MANAGER)
        return [str(part) for part in held[0][:4]] if held else None

    def calls(self, method):
        return len(self.object.GetMethodCalls(method, dbus_interface="org.freedesktop.DBus.Mock"))

    def tell(self, event, begins):
        self.object.EmitSignal(MANAGER, event, "b", [dbus.Boolean(begins)], dbus_interface="org.freedesktop.DBus.Mock")

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGCONT)
            self.process.kill()
        self.process.wait()


class PowerTest(ScreenTest):
    def service(self, can_hibernate="yes"):
        service = LoginService(self.desk, can_hibernate)
        self.addCleanup(service.stop)
        return service

    def started(self, address, **general):
        program = self.program()
        program.write_settings({"general": general, "mediaplayer": {"AUDIOFOLDER": self.media(program) / "Test Signals"}})
        program.through = ["env", f"DBUS_SYSTEM_BUS_ADDRESS={address}"]
        return program.start()

    def answers_quickly(self, program):
        begin = time.monotonic()
        program.state()
        return time.monotonic() - begin < 0.5

    def answer(self, program, word):
        wait_for(lambda: program.dialog() == "messagebox", "the question")
        time.sleep(0.4)
        text = program.texts("messagebox")
        program.do(f"messagebox.{word}")
        return " ".join(text)


class Sleep(PowerTest):
    def test_the_machine_sleeps_after_the_journal_is_written_and_wakes_up_dimmed(self):
        service = self.service()
        program = self.started(service.address)
        self.assertEqual(wait_for(service.holds_it, "the lock"),
                         ["sleep:shutdown", "zVR", "Saving what plays and the settings", "delay"])
        program.play("Pink Noise.mp3")
        program.do("app.night")
        self.assertEqual(self.desk.brightness(), "0.50")
        journal = program.folder / "journal-update.dat"
        journal.unlink(missing_ok=True)
        service.tell("PrepareForSleep", True)
        wait_for(lambda: not service.holds_it(), "the lock's end", 2)
        self.assertRegex(journal.read_text(), r"Pink Noise.mp3\n[2-9]\n3\n")
        self.desk.call("exec", "xrandr", "--output", "screen", "--brightness", "1")  # as the sleep leaves it
        self.assertEqual(self.desk.brightness(), "1.0")
        service.tell("PrepareForSleep", False)
        wait_for(service.holds_it, "the lock again", 2)
        self.assertEqual(self.desk.brightness(), "1.0", "not before two seconds have gone")
        wait_for(lambda: self.desk.brightness() == "0.50", "the night", 3)
        self.assertEqual(program.end(), 0)
        self.assertEqual(self.desk.brightness(), "1.0")

    def test_hibernation_that_is_not_allowed_says_so_and_one_that_is_is_asked_for(self):
        program = None
        for answer in ("na", "challenge", "yes"):
            service = self.service(answer)
            program = program or self.started(service.address, ONAPPEND="hibernate")
            wait_for(service.holds_it, "the lock of the service that came up")
            time.sleep(0.2)
            program.do("app.exit")
            self.assertIn("Hibernate the computer?", self.answer(program, "yes"))
            if answer != "yes":
                self.assertIn("can't hibernate", self.answer(program, "ok"))
            wait_for(lambda: program.dialog() is None, "the last box's end")
            self.assertEqual(service.calls("Hibernate"), int(answer == "yes"))
            self.assertIsNone(program.process.poll())
            service.stop()
        program.do("app.exit")
        self.answer(program, "no")
        self.assertEqual(program.process.wait(timeout=10), 0)

    def test_a_restart_saves_and_the_machine_that_goes_down_ends_the_program_without_a_question(self):
        service = self.service()
        program = self.started(service.address, ONAPPEND="reboot")
        wait_for(service.holds_it, "the lock")
        program.do("app.exit")
        self.answer(program, "yes")
        wait_for(lambda: service.calls("Reboot") == 1, "the restart")
        self.assertIsNotNone(program.setting("SKIPSECONDS"))
        self.assertIsNone(program.process.poll())
        program.do("app.exit")
        wait_for(lambda: program.dialog() == "messagebox", "the second question")
        service.tell("PrepareForShutdown", True)
        self.assertEqual(program.process.wait(timeout=5), 0)
        self.assertFalse((program.folder / "restore.bsf").exists())
        self.assertEqual(service.calls("Reboot"), 1)

    def test_a_service_that_hangs_and_a_bus_that_says_nothing_cost_nobody_a_second(self):
        service = self.service()
        program = self.started(service.address, ONAPPEND="hibernate")
        wait_for(service.holds_it, "the lock")
        service.process.send_signal(signal.SIGSTOP)
        program.do("app.exit")
        self.answer(program, "yes")
        self.assertTrue(self.answers_quickly(program))
        self.assertEqual(program.end(), 0)
        path = self.desk.call("exec", "printenv", "XDG_RUNTIME_DIR") + "/silent"
        with socket.socket(socket.AF_UNIX) as silent:
            silent.bind(path)
            silent.listen()
            for address in (f"unix:path={path}", "unix:path=/nowhere"):
                program = self.started(address)
                for _ in range(15):
                    self.assertTrue(self.answers_quickly(program), address)
                    time.sleep(0.1)
                begin = time.monotonic()
                self.assertEqual(program.end(), 0)
                self.assertLess(time.monotonic() - begin, 2, address)


class Manager:
    """The desktop's session manager, in another process."""

    def __init__(self, desk):
        self.process = desk.spawn("/usr/bin/python3", Path(__file__).parent / "sessionmanager.py", text=True,
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.address = self.process.stdout.readline().strip()

    def tell(self, word):
        self.process.stdin.write(word + "\n")
        self.process.stdin.flush()

    def hears(self, line):
        return self.process.stdout.readline().strip() == line

    def stop(self):
        self.process.kill()
        self.process.communicate()


class LogOut(PowerTest):
    def begun(self):
        manager = Manager(self.desk)
        self.addCleanup(manager.stop)
        program = self.program({"general": {"ONAPPEND": "reboot", "BRIGHTNESSDAY": 2}})
        program.through = ["env", f"SESSION_MANAGER={manager.address}"]
        return manager, program

    def test_the_journal_at_the_question_the_state_at_the_end_and_on_after_a_log_out_that_is_called_off(self):
        manager, program = self.begun()
        program.start()
        self.assertTrue(manager.hears("registered") and manager.hears("saved"))
        for question in (False, True):
            if question:
                program.do("app.exit")
                wait_for(lambda: program.dialog() == "messagebox", "the question")
            journal = program.folder / "journal.dat"
            wait_for(journal.exists, "the journal")
            (program.folder / "journal-update.dat").unlink(missing_ok=True)
            program.do("mediaplayer.mode." + ("repeat" if question else "shuffle"))
            manager.tell("logout")
            self.assertTrue(manager.hears("saved"))
            self.assertTrue((program.folder / "journal-update.dat").exists(), "the end may be a cut")
            if not question:
                manager.tell("cancel")
                program.tap_tag("radio.show")
                wait_for(lambda: program.front() == "radio", "a touch as before")
        self.assertEqual((program.setting("SHUFFLE"), self.desk.brightness()), (None, "0.80"))
        manager.tell("die")
        self.assertEqual(program.process.wait(timeout=5), 0)
        self.assertEqual(program.setting("SHUFFLE"), "0")
        self.assertEqual(list(program.folder.glob("journal*")), [])
        self.assertEqual(self.desk.brightness(), "1.0")

    def test_a_manager_that_hangs_or_crashes_costs_a_second_and_no_more(self):
        manager, program = self.begun()
        program.start()
        manager.process.send_signal(signal.SIGSTOP)
        self.assertTrue(self.answers_quickly(program))
        self.assertEqual(program.end(), 0)
        program.start()
        manager.process.send_signal(signal.SIGCONT)
        self.assertEqual(program.end(), 0)
        program.start()
        manager.stop()
        time.sleep(1)
        self.assertTrue(self.answers_quickly(program), "it lives on")
        self.assertLess(self.cpu_seconds(program, 1), 0.2)
        self.assertEqual(program.end(), 0)

    def cpu_seconds(self, program, seconds):
        """That it takes within some seconds of the clock."""
        used = lambda: sum(map(int, Path(f"/proc/{program.process.pid}/stat").read_text().split()[13:15])) / 100
        before = used()
        time.sleep(seconds)
        return used() - before


class SessionEnd(unittest.TestCase):
    def test_a_desktop_that_logs_out_takes_the_screen_away_and_nothing_is_lost(self):
        desk = Desk("logout")
        self.addCleanup(desk.stop)
        program = Zvr(desk)
        self.addCleanup(program.clean_up)
        program.write_settings({"general": {"ONAPPEND": "reboot"},
                                "mediaplayer": {"AUDIOFOLDER": program.folder / "media" / "Test Signals"}})
        program.start()
        program.play("Pink Noise.mp3")
        desk.call("exec", "openbox", "--exit")
        state = Path(desk.call("status").rpartition(" ")[2])
        pids = {part: int(pid) for pid, _, part in map(str.split, (state / "pids").read_text().splitlines())}
        wait_for(lambda: not Path(f"/proc/{pids['wm']}/cmdline").read_bytes()
                 if Path(f"/proc/{pids['wm']}").exists() else True, "the window manager's end")
        self.assertIsNone(program.process.poll(), "it needs no window manager")
        os.kill(pids["x"], signal.SIGTERM)  # as the log-out goes on
        program.process.wait(timeout=10)
        desk.stop()
        desk.call("start")
        program.start()
        self.assertIsNone(program.dialog())
        self.assertGreaterEqual(program.get("**MEDIAPOSITION**"), "00:02")
        self.assertIn("Pink Noise", program.get("**MEDIATITLE**"))
        self.assertEqual(program.end(), 0)
