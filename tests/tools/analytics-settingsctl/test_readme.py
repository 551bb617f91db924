"""What README.md shows of the command is what it prints."""

import unittest

from support import EXAMPLES, SOURCE, CommandTest

MISTAKES = (
    ("<maxResource>80000<", "<maxResource>80 000<"),
    ("<rule>rule<", "<rule>tt:rule<"),
    ('value="${root}/profiles"', 'value="${rot}/profiles"'),
)

GATE = """<?xml version="1.0" encoding="UTF-8"?>
<profile xmlns:tt="http://www.onvif.org/ver10/schema">
  <tt:rules>
    <tt:rule Name="Gate" Type="tt:LineDetector">
      <tt:Parameters>
        <tt:SimpleItem Name="Active" Value="true"/>
        <tt:SimpleItem Name="Sensitivity" Value="80"/>
        <tt:SimpleItem Name="Sensitivity" Value="60"/>
        <tt:ElementItem Name="Segments">
          <tt:Polyline>
            <tt:Point x="10" y="20"/>
          </tt:Polyline>
        </tt:ElementItem>
      </tt:Parameters>
    </tt:rule>
    <tt:Rule Name="Pavement" Type="tt:FieldDetector"/>
  </tt:rules>
</profile>
"""


def shown(command):
    """The lines that README.md shows below a command."""
    text = (SOURCE / "README.md").read_text().split(f"    $ {command}\n")[1].split("\n\n")[0]
    return [line.removeprefix("    ") for line in text.splitlines()]


class TheReadme(CommandTest):
    def test_shows_what_check_finds(self):
        settings = (EXAMPLES / "analytics.ini").read_text()
        for right, wrong in MISTAKES:
            self.assertIn(right, settings)
            settings = settings.replace(right, wrong)
        arguments = ("check", self.write("analytics.ini", settings), self.write("gate.xml", GATE))
        done = self.run_command(*arguments)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.splitlines(),
                         shown(" ".join(("analytics-settingsctl", *arguments))))


if __name__ == "__main__":
    unittest.main()
