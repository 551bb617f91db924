"""What the tests of edits share: a profile, and a way to set an item of it."""

from support import CommandTest

PROFILE = """<?xml version="1.0"?>
<p xmlns:tt="http://www.onvif.org/ver10/schema">
  <tt:rule Type="A">
    <tt:Parameters>
      <tt:SimpleItem Name="n" Value="1"/>
    </tt:Parameters>
  </tt:rule>
  <tt:rule Type="A"><tt:Parameters><tt:SimpleItem Name="n" Value="1"/></tt:Parameters></tt:rule>
  <tt:rule Type="B"/>
</p>
"""


class EditTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.write("p.xml", PROFILE)

    def set(self, value, *options):
        return ("set", "p.xml", "--rule", "A", "--item", "n", value, *options)
