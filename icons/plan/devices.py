"""Reads the layouts and the factory mappers that lie in icons/Mappings."""

import dataclasses
import pathlib
import sys
import xml.etree.ElementTree as ElementTree

MAPPINGS = pathlib.Path(__file__).resolve().parent.parent / "Mappings"

# In the order of the catalogue in the program.
NAMES = (
    "AKAI APC Mini",
    "Novation Launchpad Mini MK3",
    "Novation Launchpad Mini",
    "Novation Launchpad MKII",
    "Novation Launchpad PRO",
    "Novation Launchpad S",
    "Novation Launchpad",
)


@dataclasses.dataclass(frozen=True)
class Control:
    """An element of a layout.

    kind   "pad", "button", "slider", "ignore" or "empty"
    led    name of its LED, empty where it has none
    place  where it lies for the DJ: ("pad", row, column), ("across", n), ("right", n), ("left", n) or
           ("slider", n), all counted from 1; ("none",) for a control that is known by its name alone.
           The band above the pads and the band below them both count as "across".
    band   "top", "bottom", "left", "right", or empty
    """

    kind: str
    name: str
    led: str
    place: tuple
    band: str


@dataclasses.dataclass(frozen=True)
class Device:
    """A layout: name is its file's base name, identifier is what VirtualDJ knows the device by."""

    name: str
    identifier: str
    fullrgb: bool
    controls: tuple

    @property
    def mapper_path(self):
        return MAPPINGS / f"{self.name} mapping.xml"


def _place(element, pads_so_far):
    """Place and band of an element of a layout."""
    if element.tag == "slider":
        return ("slider", int(element.get("col")) + 1), ""
    if element.tag not in ("pad", "button"):
        return ("none",), ""
    row, column = int(element.get("row")), int(element.get("col"))
    if row in (0, 11):
        return ("across", column - 1), "top" if row == 0 else "bottom"
    if column in (0, 11):
        return ("left" if column == 0 else "right", row - 1), "left" if column == 0 else "right"
    # The pads stand row by row; three layouts put the first pad of row 2 into the cell above it.
    return ("pad", pads_so_far // 8 + 1, pads_so_far % 8 + 1), ""


def read_device(name):
    root = ElementTree.parse(MAPPINGS / f"{name}.xml").getroot()
    controls = []
    pads = 0
    for element in root:
        place, band = _place(element, pads)
        pads += place[0] == "pad"
        prefix = element.get("colorled") or element.get("led", "")
        led = prefix + element.get("name") if element.tag in ("pad", "button") else ""
        controls.append(Control(element.tag, element.get("name"), led, place, band))
    return Device(name, root.get("name"), root.get("fullrgb") == "true", tuple(controls))


def read_devices():
    return [read_device(name) for name in NAMES]


def read_rows(device):
    """The rows of a device's factory mapper, in the order of the file: (value, action)."""
    root = ElementTree.parse(device.mapper_path).getroot()
    return [(row.get("value"), row.get("action")) for row in root.iter("map")]


def bring_up_to_date(contents, check):
    """Writes texts into files, or, with check, names those that differ and stops with status 1.

    contents  path -> text
    """
    root = MAPPINGS.parent.parent
    there = {path: path.read_bytes() if path.exists() else None for path in contents}
    stale = [path for path, text in contents.items() if there[path] != text.encode()]
    for path in stale:
        print(f"{'Not up to date' if check else 'Written'}: {path.relative_to(root)}")
        if not check:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(contents[path].encode())
    sys.exit(1 if check and stale else 0)
