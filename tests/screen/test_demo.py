"""The program folder of the demo: what a further ./run leaves alone, and what it sets back."""

import subprocess
import tempfile
import unittest
from pathlib import Path

from lib import ROOT


class Demo(unittest.TestCase):
    def stage(self, folder):
        subprocess.run([ROOT / "tools" / "stage", folder], check=True, timeout=60)
        return (folder / "zvr.ini").read_text(encoding="utf-8").split("\n")

    def test_each_run_begins_at_the_samples_in_the_skin_of_the_screen(self):
        with tempfile.TemporaryDirectory(prefix="zvr&test-") as work:
            folder = Path(work) / "demo"
            fresh = self.stage(folder)
            for line in ("ONAPPEND=ask", "USENIGHTSKIN=1", f"CURRENTFOLDER={folder}/media"):
                self.assertIn(line, fresh)
            self.assertFalse([line for line in fresh if line.startswith("USEDSKIN")])
            (folder / "zvr.ini").write_text(
                "[general]\r\nONAPPEND=reboot\r\nUSEDSKIN=Dark&Silver 800x600\r\nUSEDNIGHTSKIN=My Own\r\n"
                "[mediaplayer]\r\nCURRENTFOLDER=/elsewhere\r\nCURRENTPLAYLIST=a.m3u\r\n[gallery]\r\nCURRENTFOLDER=/far\r\n",
                encoding="utf-8", newline="")
            again = [line.rstrip("\r") for line in self.stage(folder)]
            self.assertEqual(again, ["[general]", "ONAPPEND=reboot", "USEDNIGHTSKIN=My Own", "[mediaplayer]",
                                     f"CURRENTFOLDER={folder}/media", "CURRENTPLAYLIST=a.m3u", "[gallery]",
                                     "CURRENTFOLDER=/far", ""])
