"""The command `draw`: pictures that an XML parser reads and a renderer shows."""

import base64
import os
import re
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree

import png
from support import EXAMPLES, ONVIF, SOURCE, CommandTest

SVG = "{http://www.w3.org/2000/svg}"
HREF = "{http://www.w3.org/1999/xlink}href"
MARGIN = 24  # of the image within the picture
GROUND = (0xF4, 0xF4, 0xF4)
PROFILE = """<p xmlns:tt="http://www.onvif.org/ver10/schema"
                xmlns:ka="urn:kestal-com:schema:onvif:analytics:1">%s</p>"""
RULE = """<tt:rule Type="%s" Name="%s"><tt:Parameters>
  <tt:SimpleItem Name="Active" Value="%d"/>
  <tt:ElementItem Name="Field">%s</tt:ElementItem>
</tt:Parameters></tt:rule>"""
POINTS = '<tt:Point x="10" y="20"/><tt:Point x="110" y="20"/>'
LINE = f"<tt:Polyline>{POINTS}</tt:Polyline>"
TRIANGLE = f'<tt:Polygon>{POINTS}<tt:Point x="60" y="90"/></tt:Polygon>'
RECTANGLE = '<tt:Rectangle left="10" top="20" right="110" bottom="90"/>'


def profile(*rules):
    return PROFILE % "".join(RULE % rule for rule in rules)


class DrawTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.environment["ANALYTICS_INI"] = str(EXAMPLES / "analytics.ini")

    def draw(self, text, *options):
        """The root element of the picture."""
        self.write("profile.xml", text)
        self.answer("draw", "profile.xml", "-o", "out.svg", *options)
        return ElementTree.parse(self.directory / "out.svg").getroot()

    def rendered(self):
        """The picture that was drawn last, as pixels."""
        done = subprocess.run(["rsvg-convert", "out.svg"], cwd=self.directory, check=True,
                              stdout=subprocess.PIPE, timeout=60)
        return png.Image(done.stdout)

    def shapes(self, picture, owner=1):
        """The names of the elements that an owner is drawn with, without its title."""
        group = picture.find(f".//{SVG}g[@id='owner-{owner}']")
        return [element.tag[len(SVG):] for element in group][1:]


class APicture(DrawTest):
    def test_is_svg_of_version_1_1(self):
        picture = self.draw(profile(("A", "a", 1, TRIANGLE)))
        self.assertEqual((picture.tag, picture.get("version")), (SVG + "svg", "1.1"))

    def test_has_only_elements_of_that_version(self):
        picture = self.draw((EXAMPLES / "profile.xml").read_text())
        self.assertLessEqual({element.tag[len(SVG):] for element in picture.iter()}, {
            "svg", "title", "rect", "g", "defs", "clipPath", "pattern", "path", "polyline",
            "polygon", "line", "text", "circle"})

    def test_shows_each_kind_of_geometry(self):
        point = '<tt:Polyline><tt:Point x="1" y="2"/></tt:Polyline>'
        for geometry, shapes in ((TRIANGLE, ["polygon"]), (LINE, ["polyline", "polygon"]),
                                 (RECTANGLE, ["rect"]), (point, ["circle"])):
            with self.subTest(geometry=geometry):
                picture = self.draw(profile(("A", "a", 1, geometry)))
                self.assertEqual(self.shapes(picture), shapes)

    def test_shows_the_direction_of_a_line_by_an_arrow_at_its_end(self):
        picture = self.draw(profile(("A", "a", 1, LINE)), "--size", "200x100")
        arrow = picture.find(f".//{SVG}g[@id='owner-1']/{SVG}polygon")
        self.assertEqual(arrow.get("points"), "110,20 94,26 94,14")

    def test_names_each_rule_by_type_and_name(self):
        picture = self.draw(profile(("Crossing", "Gate", 1, LINE), ("Field", "Yard", 0, TRIANGLE)))
        texts = [text.text for text in picture.iter(SVG + "text")]
        for text in ("Crossing: Gate", "Field: Yard (inactive)"):
            # Twice in the image, once of them as a light rim, and once in the legend.
            self.assertEqual(texts.count(text), 3)

    def test_tells_inactive_rules_not_by_colour_alone(self):
        picture = self.draw(profile(("A", "a", 1, TRIANGLE), ("A", "b", 0, TRIANGLE)))
        active, inactive = (picture.find(f".//{SVG}g[@id='owner-{n}']/{SVG}polygon")
                            for n in (1, 2))
        self.assertIsNone(active.get("stroke-dasharray"))
        self.assertIsNotNone(inactive.get("stroke-dasharray"))
        self.assertEqual(inactive.get("fill"), "url(#inactive)")

    def test_escapes_texts_of_the_profile(self):
        picture = self.draw(profile(("&lt;script&gt;", "a &amp; &quot;b&quot; ]]&gt;", 1, LINE)))
        title = picture.find(f".//{SVG}g[@id='owner-1']/{SVG}title")
        self.assertEqual(title.text, '<script>: a & "b" ]]>')

    def test_without_geometry_says_so(self):
        picture = self.draw(PROFILE % '<tt:rule Type="A"/>')
        self.assertIn("No points, lines or rectangles",
                      [text.text for text in picture.iter(SVG + "text")])

    def test_writes_labels_beside_each_other(self):
        picture = self.draw(profile(*(("A", f"rule {n}", 1, RECTANGLE) for n in range(3))))
        labels = {(text.get("x"), text.get("y")) for text in picture.iter(SVG + "text")
                  if text.get("stroke")}
        self.assertEqual(len(labels), 3)

    def test_shows_the_calibration_of_an_engine(self):
        picture = self.draw((EXAMPLES / "profile.xml").read_text())
        texts = [text.text for text in picture.iter(SVG + "text")]
        for text in ("Tracker, height 180", "Tracker, near width", "Tracker, far width"):
            self.assertIn(text, texts)

    def test_holds_the_greatest_coordinates(self):
        far = ('<tt:Polyline><tt:Point x="-2147483648" y="2147483647"/>'
               '<tt:Point x="2147483647" y="-2147483648"/></tt:Polyline>')
        picture = self.draw(profile(("A", "a", 1, far)))
        self.assertLess(int(picture.get("height")), 1000)
        for number in re.findall(r"-?\d+", picture.find(f".//{SVG}polyline").get("points")):
            self.assertLess(abs(int(number)), 1000)


class ACalibration(DrawTest):
    """Only what the profile gives of it is drawn."""

    def draw_calibration(self, content):
        """The shapes and labels of a rule that has nothing but this calibration."""
        picture = self.draw(PROFILE % (
            '<tt:rule Type="A"><tt:Parameters><tt:ElementItem Name="Calibration"><ka:Calibration>'
            f"{content}</ka:Calibration></tt:ElementItem></tt:Parameters></tt:rule>"))
        owner = picture.find(f".//{SVG}g[@id='owner-1']")
        shapes = [] if owner is None else self.shapes(picture)
        labels = {text.text for text in picture.iter(SVG + "text") if text.get("stroke")}
        return shapes, labels

    def test_of_which_a_piece_is_missing_is_drawn_without_it(self):
        near = '<ka:NearWidth><tt:Point x="0" y="0"/><tt:Point x="9" y="0"/></ka:NearWidth>'
        self.assertEqual(self.draw_calibration(near), (["polyline", "line", "line"],
                                                       {"A (inactive), near width"}))

    def test_of_which_the_height_is_missing_says_so(self):
        whole = '<ka:ObjectAtNearLeft left="0" top="0" right="4" bottom="5"/>'
        self.assertEqual(self.draw_calibration(whole), (["rect"],
                                                        {"A (inactive), height missing"}))

    def test_of_which_each_piece_lacks_something_is_not_drawn(self):
        for piece in ('<ka:ObjectAtNearLeft left="4" top="5"/>',
                      '<ka:ObjectAtNearLeft left="4" top="5" right="6"/>',
                      '<ka:NearWidth><tt:Point x="1" y="2"/></ka:NearWidth>',
                      "<ka:PhysicalHeight>180</ka:PhysicalHeight>", ""):
            with self.subTest(piece=piece):
                self.assertEqual(self.draw_calibration(piece), ([], set()))

    def test_at_the_origin_is_drawn(self):
        far = '<ka:FarWidth><tt:Point x="0" y="0"/><tt:Point x="0" y="0"/></ka:FarWidth>'
        self.assertEqual(self.draw_calibration(far)[1], {"A (inactive), far width"})


class ARenderedPicture(DrawTest):
    def test_shows_pixels_where_the_profile_has_them(self):
        self.draw(profile(("A", "a", 1, RECTANGLE)), "--size", "200x100")
        image = self.rendered()
        self.assertEqual(image.pixel(MARGIN + 60, MARGIN + 20), (0x00, 0x60, 0xA8))
        self.assertEqual(image.pixel(MARGIN + 180, MARGIN + 95), GROUND)
        inside = image.pixel(MARGIN + 60, MARGIN + 70)
        self.assertNotIn(inside, (GROUND, (0x00, 0x60, 0xA8)))

    def test_cuts_off_what_is_outside_of_the_image(self):
        wide = '<tt:Rectangle left="-500" top="-500" right="5000" bottom="5000"/>'
        self.draw(profile(("A", "a", 1, wide)), "--size", "200x100")
        image = self.rendered()
        self.assertNotEqual(image.pixel(MARGIN + 100, MARGIN + 80), GROUND)
        self.assertEqual(image.pixel(MARGIN + 100, MARGIN + 100 + 20), (255, 255, 255))

    def test_hatches_inactive_rules(self):
        self.draw(profile(("A", "a", 0, RECTANGLE)), "--size", "200x100")
        image = self.rendered()
        row = {image.pixel(MARGIN + x, MARGIN + 70) for x in range(30, 90)}
        self.assertIn(GROUND, row)
        self.assertTrue(any(max(pixel) < 0xC0 for pixel in row))

    def test_of_each_real_document_is_not_empty(self):
        for path in sorted(ONVIF.glob("*.xml")):
            for vocabulary in ("schema", "service"):
                with self.subTest(path=path.name, vocabulary=vocabulary):
                    self.draw(path.read_text(), "--settings", ONVIF / f"{vocabulary}.ini")
                    image = self.rendered()
                    self.assertEqual(image.pixel(1, 1), (255, 255, 255))
                    self.assertEqual(image.pixel(MARGIN + 2, MARGIN + 2), GROUND)

    def test_of_a_real_document_shows_its_fields(self):
        picture = self.draw((ONVIF / "GetVideoAnalyticsConfigurationsResponse.xml").read_text(),
                            "--settings", ONVIF / "schema.ini")
        polygons = [owner.findall(f"{SVG}polygon") for owner in picture.iter(f"{SVG}g")
                    if (owner.get("id") or "").startswith("owner-")]
        self.assertEqual([len(found) for found in polygons], [1, 1, 1, 1, 1, 1])


class ABackground(DrawTest):
    BLUE = (10, 20, 200)

    def test_becomes_part_of_the_picture(self):
        self.write("photo.png", png.written(80, 60, self.BLUE))
        picture = self.draw(profile(("A", "a", 1, LINE)), "--background", "photo.png")
        image = picture.find(f".//{SVG}image")
        data = base64.b64decode(image.get(HREF).split(",")[1], validate=True)
        self.assertEqual(png.Image(data).pixel(0, 0), self.BLUE)
        self.assertEqual((image.get("width"), image.get("height")), ("80", "60"))

    def test_lies_below_the_geometry(self):
        self.write("photo.png", png.written(80, 60, self.BLUE))
        self.draw(profile(("A", "a", 1, RECTANGLE)), "--background", "photo.png", "--size",
                  "200x100")
        image = self.rendered()
        self.assertEqual(image.pixel(MARGIN + 180, MARGIN + 95), self.BLUE)
        self.assertEqual(image.pixel(MARGIN + 60, MARGIN + 20), (0x00, 0x60, 0xA8))

    def test_can_be_a_jpeg(self):
        start = b"\xff\xd8\xff\xe0\x00\x04ab\xff\xc0\x00\x0b\x08\x00\x3c\x00\x50\x01\x01\x11\x00"
        self.write("photo.jpg", start + b"\xff\xd9")
        picture = self.draw(profile(("A", "a", 1, LINE)), "--background", "photo.jpg")
        image = picture.find(f".//{SVG}image")
        self.assertEqual((image.get("width"), image.get("height")), ("80", "60"))
        self.assertTrue(image.get(HREF).startswith("data:image/jpeg;base64,/9j/"))

    def test_that_is_no_image_is_refused(self):
        self.write("profile.xml", profile(("A", "a", 1, LINE)))
        whole = png.written(80, 60, self.BLUE)
        for data in (b"GIF89a", whole[:20], b"\xff\xd8\xff", b"\xff\xd8\xff\xe0\x00\x00" * 9):
            with self.subTest(data=data):
                self.write("photo", data)
                self.assert_refused(2, "photo: is no PNG or JPEG image; convert it to one of them",
                                    "draw", "profile.xml", "-o", "out.svg", "--background", "photo")
                self.assertFalse((self.directory / "out.svg").exists())


    def test_that_was_cut_off_is_refused(self):
        self.write("profile.xml", profile(("A", "a", 1, LINE)))
        start = b"\xff\xd8\xff\xe0\x00\x04ab\xff\xc0\x00\x0b\x08\x00\x3c\x00\x50\x01\x01\x11\x00"
        for data in (png.written(80, 60, self.BLUE)[:-4], start):
            with self.subTest(data=data[:4]):
                self.write("photo", data)
                self.assert_refused(2, "photo: is an image that was cut off; name a whole one",
                                    "draw", "profile.xml", "-o", "out.svg", "--background", "photo")


class TheCommand(DrawTest):
    def test_does_not_write_over_what_it_reads(self):
        names = (self.write("profile.xml", profile(("A", "a", 1, LINE))),
                 self.write("photo.png", png.written(80, 60, b"\0\0\xff")),
                 self.write("analytics.ini", (EXAMPLES / "analytics.ini").read_text()))
        (self.directory / "link").symlink_to("profile.xml")
        for output in (*names, "./profile.xml", "link"):
            with self.subTest(output=output):
                self.assert_refused(2, f"{output}: is read for the picture; write it to another "
                                    "file", "draw", "profile.xml", "-o", output, "--background",
                                    "photo.png", "--settings", "analytics.ini")

    def test_draws_the_picture_of_the_documents(self):
        kept = (SOURCE / "docs" / "settingsctl-draw.svg").read_text()
        drawn = self.answer("draw", "examples/profile.xml", "-o", "-", "--size", "1280x720",
                            cwd=SOURCE)
        self.assertEqual(drawn, kept)

    def test_refuses_sizes_that_are_none(self):
        self.write("profile.xml", profile(("A", "a", 1, LINE)))
        for size in ("1280", "0x720", "-1x5", "12x", "1280x720x3", "99999x1", "axb", "1280*720"):
            with self.subTest(size=size):
                self.assert_refused(
                    2, f"--size {size} is no size: write width and height, such as 1280x720 and "
                    "no more than 16384x16384",
                    "draw", "profile.xml", "-o", "out.svg", f"--size={size}")

    def test_keeps_a_former_picture_where_the_profile_is_bad(self):
        self.write("out.svg", "former")
        self.write("profile.xml", "<p>")
        done = self.run_command("draw", "profile.xml", "-o", "out.svg")
        self.assertEqual((done.returncode, self.read("out.svg")), (2, "former"))
        self.assertIn("profile.xml:1: is not well-formed XML", done.stderr)

    def test_writes_where_a_symbolic_link_leads_though_there_is_nothing_yet(self):
        (self.directory / "link.svg").symlink_to("new.svg")
        self.write("profile.xml", profile(("A", "a", 1, LINE)))
        self.answer("draw", "profile.xml", "-o", "link.svg")
        self.assertTrue((self.directory / "link.svg").is_symlink())
        self.assertIn("</svg>", self.read("new.svg"))

    def test_names_a_file_in_letters_that_svg_can_hold(self):
        name = os.fsdecode(b"a\n\x01\xff\xef\xbf\xbf.xml")
        self.write(name, profile(("A", "a", 1, LINE)))
        drawn = self.answer("draw", name, "-o", "-")
        self.assertEqual(ElementTree.fromstring(drawn.encode()).find(SVG + "title").text,
                         "Analytics geometry of a\\n\\x01\ufffd\ufffd.xml")

    def test_needs_to_be_told_where_to_write(self):
        self.write("profile.xml", profile(("A", "a", 1, LINE)))
        self.assertEqual(self.run_command("draw", "profile.xml").returncode, 2)

    def test_reads_standard_input(self):
        drawn = self.answer("draw", "-", "-o", "-", input=profile(("A", "a", 1, LINE)))
        self.assertEqual(ElementTree.fromstring(drawn.encode()).tag, SVG + "svg")


if __name__ == "__main__":
    unittest.main()
