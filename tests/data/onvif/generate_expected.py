#!/usr/bin/env python3
"""Writes what a profile document has to read from the documents beside this script.

For each document and each settings file there is one text, such as
GetRulesResponse.schema.expected. The documents are read with Python's own XML parser and the rules
of reading stand here a second time, so that the texts do not come from what they are to test.

  generate_expected.py           writes the texts
  generate_expected.py --check   compares them with what is there and ends with 1 on a difference
"""

import argparse
import difflib
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

FOLDER = pathlib.Path(__file__).resolve().parent
SETTINGS = ("schema", "service")

MISSING = -1  # the default of each integer that is read
PLACE = (-7, -7)  # the point, and each corner of a rectangle, before it is read
LARGEST = 2**31 - 1
SMALLEST = -(2**31)

CALIBRATION_BEFORE = {
    "near left": [(101, 102), (103, 104)],
    "near width": [(105, 106), (107, 108)],
    "far width": [(109, 110), (111, 112)],
    "height": 113,
}


def integer(text, default):
    """The leading integer of a text; the default for none or blanks, 0 where there is no number."""
    text = (text or "").lstrip(" \t\n\v\f\r")
    if not text:
        return default
    number = re.match(r"[+-]?[0-9]+", text)
    return min(max(int(number.group()), SMALLEST), LARGEST) if number else 0


def point_text(point):
    return "(%d,%d)" % tuple(point)


def pair_text(pair):
    return "-".join(map(point_text, pair))


def listed(texts):
    return " ".join(texts) or "none"


def quoted(text):
    return '"%s"' % text


class Vocabulary:
    """Tags and namespaces of a settings file."""

    def __init__(self, path):
        settings = ElementTree.parse(path)
        self.rule = settings.findtext("tags/rule")
        self.engine = settings.findtext("tags/engine")
        self.event_sink = settings.findtext("tags/eventSink")
        self.onvif = settings.findtext("namespaces/onvif/url")
        self.onvif_prefix = settings.findtext("namespaces/onvif/prefix")
        self.kestal = settings.findtext("namespaces/kestal/url")
        self.kestal_prefix = settings.findtext("namespaces/kestal/prefix")
        bound = {self.onvif_prefix: self.onvif, self.kestal_prefix: self.kestal}
        self.schema = bound["tt"]

    def of_onvif(self, tag):
        return "{%s}%s" % (self.onvif, tag)

    def of_kestal(self, tag):
        return "{%s}%s" % (self.kestal, tag)

    def of_schema(self, tag):
        return "{%s}%s" % (self.schema, tag)


def local_name(element):
    return element.tag.rpartition("}")[2]


def steps(elements, *tags):
    """The elements at the end of a path of child steps."""
    for tag in tags:
        elements = [child for element in elements for child in element if child.tag == tag]
    return elements


def items_of_any_namespace(element, kind):
    parameters = [child for child in element if local_name(child) == "Parameters"]
    return [item for parent in parameters for item in parent if local_name(item) == kind]


def below(element):
    return list(element.iter())[1:]


def point_of(element):
    """A point as in a list of points, where what is missing is 0."""
    return integer(element.get("x"), 0), integer(element.get("y"), 0)


def corners(element, before):
    left_top, right_bottom = before
    return [
        (integer(element.get("left"), left_top[0]), integer(element.get("top"), left_top[1])),
        (integer(element.get("right"), right_bottom[0]),
         integer(element.get("bottom"), right_bottom[1])),
    ]


def line_of(points, before):
    return points[:2] if len(points) >= 2 else before


def calibration_of(element, vocabulary):
    calibrations = [
        child
        for item in steps([element], *map(vocabulary.of_onvif, ("Parameters", "ElementItem")))
        if item.get("Name") == "Calibration"
        for child in steps([item], vocabulary.of_kestal("Calibration"))
    ]
    values = dict(CALIBRATION_BEFORE)
    rectangles = steps(calibrations, vocabulary.of_kestal("ObjectAtNearLeft"))
    if rectangles:
        values["near left"] = corners(rectangles[0], values["near left"])
    for name, tag in (("near width", "NearWidth"), ("far width", "FarWidth")):
        points = steps(calibrations, vocabulary.of_kestal(tag), vocabulary.of_onvif("Point"))
        values[name] = line_of([point_of(point) for point in points], values[name])
    heights = steps(calibrations, vocabulary.of_kestal("PhysicalHeight"))
    if heights:
        values["height"] = integer(heights[0].text, values["height"])
    return values


def calibration_text(values):
    if values == CALIBRATION_BEFORE:
        return "none"
    pairs = ["%s %s" % (name, pair_text(values[name]))
             for name in ("near left", "near width", "far width")]
    return ", ".join(pairs + ["height %d" % values["height"]])


class Description:
    """The text for one document under one vocabulary."""

    def __init__(self, root, vocabulary):
        self.vocabulary = vocabulary
        self.all = list(root.iter())
        self.engines = self.elements(vocabulary.of_onvif(vocabulary.engine))
        self.rules = self.elements(vocabulary.of_onvif(vocabulary.rule))
        self.event_sinks = self.elements(vocabulary.of_kestal(vocabulary.event_sink))

    def elements(self, tag):
        return [element for element in self.all if element.tag == tag]

    def value(self, element, name):
        """The value of a simple item, as text; what cannot be read is empty."""
        items = steps([element], *map(self.vocabulary.of_onvif, ("Parameters", "SimpleItem")))
        values = [item.get("Value", "") for item in items if item.get("Name") == name]
        return values[0] if values else ""

    def is_active(self, rule):
        return integer(self.value(rule, "Active"), 0) != 0

    def counts(self):
        tag = self.vocabulary.of_schema
        yield "engines: %d" % len(self.engines)
        yield "rules: %d" % len(self.rules)
        yield "event sinks: %d" % len(self.event_sinks)
        yield "simple items of the schema: %d" % len(self.elements(tag("SimpleItem")))
        yield "element items of the schema: %d" % len(self.elements(tag("ElementItem")))
        yield "points of the schema: %d" % len(self.elements(tag("Point")))

    def simple_item(self, element, item):
        name = item.get("Name", "")
        value = self.value(element, name)
        return '  simple item "%s" = "%s": read "%s", as integer %d' % (
            name, item.get("Value", ""), value, integer(value, MISSING))

    def element_item(self, item):
        yield '  element item "%s"' % item.get("Name", "")
        points = [point_of(element) for element in below(item)
                  if element.tag == self.vocabulary.of_schema("Point")]
        yield "    points: " + listed(map(point_text, points))
        yield "    line: " + (pair_text(points[:2]) if len(points) >= 2 else "none")
        places = [(integer(element.get("x"), PLACE[0]), integer(element.get("y"), PLACE[1]))
                  for element in below(item) if "x" in element.keys() or "y" in element.keys()]
        yield "    places: " + listed(map(point_text, places))
        rectangles = [corners(element, [PLACE, PLACE]) for element in below(item)
                      if {"left", "top", "right", "bottom"} <= set(element.keys())]
        yield "    rectangles: " + listed(map(pair_text, rectangles))

    def parameters(self, element):
        path = self.vocabulary.of_onvif("Parameters")
        for kind, text in (("SimpleItem", "simple"), ("ElementItem", "element")):
            read = steps([element], path, self.vocabulary.of_onvif(kind))
            yield "  %s items that queries reach: %d" % (text, len(read))
        for item in items_of_any_namespace(element, "SimpleItem"):
            yield self.simple_item(element, item)
        for item in items_of_any_namespace(element, "ElementItem"):
            yield from self.element_item(item)
        yield "  calibration: " + calibration_text(calibration_of(element, self.vocabulary))

    def title(self, kind, number, element):
        return '\n%s %d: type "%s", name "%s"' % (
            kind, number, element.get("Type", ""), element.get("Name", ""))

    def activity(self):
        types = list(dict.fromkeys(rule.get("Type", "") for rule in self.rules))
        yield ""
        for rule_type in filter(None, types):
            rules = [rule for rule in self.rules if rule.get("Type") == rule_type]
            yield 'type "%s": number %d, %s' % (rule_type, len(rules), self.state(rules))
        yield "any type: " + self.state(self.rules)
        active = [rule.get("Type", "") for rule in self.rules if self.is_active(rule)]
        yield "active rules: " + listed(map(quoted, filter(None, dict.fromkeys(active))))

    def state(self, rules):
        return "active" if any(map(self.is_active, rules)) else "not active"

    def lines(self):
        yield from self.counts()
        for kind, elements in (("engine", self.engines), ("rule", self.rules)):
            for number, element in enumerate(elements, 1):
                yield self.title(kind, number, element)
                yield from self.parameters(element)
        for number, element in enumerate(self.event_sinks, 1):
            yield self.title("event sink", number, element)
        yield from self.activity()

    def text(self):
        return "".join(line + "\n" for line in self.lines())


def expected_texts():
    """All texts by the path of their file."""
    texts = {}
    for settings in SETTINGS:
        vocabulary = Vocabulary(FOLDER / (settings + ".ini"))
        for document in sorted(FOLDER.glob("*.xml")):
            root = ElementTree.parse(document).getroot()
            path = FOLDER / ("%s.%s.expected" % (document.stem, settings))
            texts[path] = Description(root, vocabulary).text()
    return texts


def read(path):
    return path.read_text(encoding="utf-8") if path.exists() else ""


def differences(texts):
    """What differs between the files and the texts, as lines of a diff."""
    for path in sorted(set(FOLDER.glob("*.expected")) | set(texts)):
        yield from difflib.unified_diff(
            read(path).splitlines(True), texts.get(path, "").splitlines(True),
            path.name, path.name + " (generated)")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true", help="compare instead of writing")
    texts = expected_texts()
    if parser.parse_args().check:
        found = list(differences(texts))
        sys.stderr.writelines(found)
        return 1 if found else 0
    for path, text in texts.items():
        path.write_text(text, encoding="utf-8", newline="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
