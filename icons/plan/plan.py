"""The plan of the factory mappers: what every place of a pad controller does and what its LED shows.

One plan serves all devices. Scripts are VirtualDJ's; in this file "@" in them stands for "deck left" or
"deck right", and a word in braces stands for a colour of the device.

LED scripts keep the form "question ? answer : answer", so that they come back whole when the program takes
the wrapping off a mapper that it has exported.
"""

import dataclasses
import re

# --- What is pressed, and what lights ---------------------------------------------------------------------


@dataclasses.dataclass(frozen=True)
class Key:
    """press is the script of the key, led the script of its LED."""

    press: str
    led: str


def _samples(n):
    return Key(f"sampler_play_stop {n}", "{sample%d}" % n)


def _cue(n):
    # What a press would delete blinks, so that it is seen before it hurts.
    is_set = "var '$cuedelete' ? blink ? {cue%d} : off : {cue%d}" % (n, n)
    return Key(
        f"var '$cuedelete' ? @ delete_cue {n} & set '$cuedelete' 0 : @ hot_cue {n}",
        f"@ has_cue {n} ? {is_set} : {{rest}}",
    )


def _loop(beats):
    return Key(f"@ loop {beats}", f"@ loop {beats} ? {{run}} : @ loaded ? {{rest}} : off")


def _resize(verb):
    return Key(f"@ {verb}", "@ loop ? {on} : @ loaded ? {rest} : off")


def _jump(beats):
    return Key(f"@ goto {beats}", "@ loaded ? {rest} : off")


def _effect(slot):
    return Key(f"@ effect_active {slot}", f"@ effect_active {slot} ? {{run}} : {{rest}}")


def _page_pad(n):
    """A pad of the page that VirtualDJ shows for the deck: slices, rolls, stems, or lights."""
    return Key(f"@ pad {n}", f"@ pad_button_color {n}")


# The pads of a deck while the pads are decks: four columns, the left deck's and again the right deck's.
DECK = (
    tuple(_cue(n) for n in (1, 2, 3, 4)),
    tuple(_cue(n) for n in (5, 6, 7, 8)),
    tuple(_loop(beats) for beats in (1, 2, 4, 8)),
    (_resize("loop_half"), _resize("loop_double"), _jump("-4"), _jump("+4")),
    (
        *(_effect(slot) for slot in (1, 2, 3)),
        Key("@ dump while_pressed", "@ dump ? {on} : @ loaded ? {rest} : off"),
    ),
    tuple(_page_pad(n) for n in (1, 2, 3, 4)),
    tuple(_page_pad(n) for n in (5, 6, 7, 8)),
    (
        Key("@ cue_stop", "@ pioneer_cue ? {on} : @ loaded ? {rest} : off"),
        Key("@ play_pause", "@ play ? {run} : @ loaded ? {rest} : off"),
        Key("@ sync", "@ is_sync ? {on} : @ loaded ? {rest} : off"),
        # A deck that plays is left alone; the key is bright while its deck waits for a track.
        Key("@ play ? nothing : @ load", "@ play ? off : @ loaded ? {rest} : {on}"),
    ),
)

SIDES = ("left", "right")


def _both(command):
    return f"deck left {command} & deck right {command}"


def by_mode(samples, decks):
    """$padmode tells what the pads are: 0 samples, 1 decks."""
    return f"var '$padmode' 0 ? {samples} : {decks}"


def _bank(n):
    return Key(f"sampler_bank {n}", "sampler_bank %d ? {samples} : {dim}" % n)


PAGES = 8  # that VirtualDJ keeps ready for a deck


def _next_page(side):
    """From each page to the next; from the last, and from a page that is none of them, to the first."""
    steps = [f"deck {side} pad_page {n} ? deck {side} pad_page {n + 1}" for n in range(1, PAGES)]
    return Key(" : ".join([*steps, f"deck {side} pad_page 1"]), "{%srest}" % side)


def _toggle(verb):
    return Key(verb, verb + " ? {decks} : {dim}")


def _anydeck(question):
    return f"deck left {question} ? {{decks}} : deck right {question} ? {{decks}} : {{dim}}"


# The keys of the right band: (while the pads are samples, while they are decks).
STOP_SAMPLES = Key("sampler_stop all", "sampler_used ? {stop} : {stopdim}")
DELETE_CUE = Key(
    "toggle '$cuedelete'",
    "var '$cuedelete' ? blink ? {stop} : {stopdim} : {dim}",
)
RIGHT = (
    (_bank(1), _toggle("quantize_all")),
    (_bank(2), DELETE_CUE),
    (_bank(3), Key(_both("loop_exit"), _anydeck("loop"))),
    (_bank(4), Key("browser_window 'folders,songs'", "browser_window 'folders' ? {decks} : {dim}")),
    (_bank(5), Key(_both("effect_disable_all"), _anydeck("effects_used 'deck'"))),
    (_bank(6), Key("deck left pfl", "deck left pfl ? {lefton} : {leftrest}")),
    (_bank(7), Key("deck right pfl", "deck right pfl ? {righton} : {rightrest}")),
    (STOP_SAMPLES, STOP_SAMPLES),
)

# The keys of the band above or below the pads, in the same way.
_STEP = ("{samplesstep}", "{decksstep}")


def _always(press, led):
    return (Key(press, led),) * 2


_BROWSE = "deck left play ? deck right play ? {dim} : {decks} : {decks}"
ACROSS = (
    (Key("sampler_volume_master +5%", _STEP[0]), Key(_both("slicer 'length' -1"), _STEP[1])),
    (Key("sampler_volume_master -5%", _STEP[0]), Key(_both("slicer 'length' +1"), _STEP[1])),
    (Key("sampler_bank -1", _STEP[0]), _next_page("left")),
    (Key("sampler_bank +1", _STEP[0]), _next_page("right")),
    _always("cycle '$padmode' 2 & set '$cuedelete' 0", by_mode("{samples}", "{decks}")),
    _always("browser_scroll -1", _BROWSE),
    _always("browser_scroll +1", _BROWSE),
    _always("toggle '$flashled'", "var '$flashled' ? blink 1bt ? {decks} : {dim} : {dim}"),
)

# Faders from left to right: four for the left deck, four for the right; (command, rests at the centre).
_DECK_FADERS = (("level", False), ("eq_low", True), ("filter", True), ("effect_slider 1 1", False))
FADERS = tuple((side, f"deck {side} {command}", centred) for side in SIDES for command, centred in _DECK_FADERS)
LAST_FADER = "master_volume"

# --- Colours ----------------------------------------------------------------------------------------------

_SAMPLE = re.compile(r"\{sample(\d+)\}")
_CUE = re.compile(r"\{cue(\d)\}")


@dataclasses.dataclass(frozen=True)
class Colours:
    """The colours of a kind of device; each is a word or a hash and six digits.

    deck    side -> (active, ready)
    shared  word -> colour, for keys that belong to neither deck; empty where the bands have plain LEDs
    cue     script of a hot cue that is set, with "%d" for its number; empty for the colour of its deck
    sample  script of a sample, with "%d" for its number
    flash   whether active keys can flash with the beat: the device has the key that asks for it
    """

    deck: dict
    shared: dict
    cue: str
    sample: str
    flash: bool

    def paint(self, led, side=""):
        """A LED script with its colours filled in."""
        words = {word: f"color '{colour}'" for word, colour in self.shared.items()}
        for each in SIDES:
            words[each + "on"], words[each + "rest"] = (f"color '{colour}'" for colour in self.deck[each])
        if side:
            words["on"], words["rest"] = words[side + "on"], words[side + "rest"]
            words["run"] = words["on"]
            if self.flash:
                words["run"] = "var '$flashled' ? @ blink 1bt ? {on} : {rest} : {on}".format(**words)
        led = _CUE.sub(lambda cue: self.cue % int(cue[1]) if self.cue else "{on}", led)
        led = _SAMPLE.sub(lambda sample: self.sample.replace("%d", sample[1]), led)
        return on_deck(led.format(**words), side)


def on_deck(script, side):
    return script.replace("@", f"deck {side}") if side else script


_LAUNCHPAD_DECKS = {"left": ("#FF0000", "#550000"), "right": ("#00FF00", "#005500")}
_LAUNCHPAD_SHARED = {
    "samples": "#FF5500",
    "decks": "#FFFF00",
    "dim": "#555500",
    "samplesstep": "#AA5500",
    "decksstep": "#AAAA00",
    "stop": "#FF0000",
    "stopdim": "#550000",
}
_OWN_SAMPLE_COLOUR = "sampler_loaded %d ? get_sample_color %d : off"

# The AKAI knows three colours and no dim one; its band keys have plain LEDs.
AKAI = Colours(
    {"left": ("red", "yellow"), "right": ("green", "yellow")},
    {},
    "",
    "sampler_play_stop %d ? color 'green' : sampler_loaded %d ? color 'yellow' : off",
    False,
)
LAUNCHPAD = Colours(_LAUNCHPAD_DECKS, _LAUNCHPAD_SHARED, "", _OWN_SAMPLE_COLOUR, True)
RGB = Colours(_LAUNCHPAD_DECKS, _LAUNCHPAD_SHARED, "@ cue_color %d", _OWN_SAMPLE_COLOUR, True)


def colours_of(device):
    if device.identifier == "APCMINI":
        return AKAI
    return RGB if device.fullrgb else LAUNCHPAD


# --- Rows of a device -------------------------------------------------------------------------------------


@dataclasses.dataclass(frozen=True)
class Row:
    """A row of a mapper; raw is the action as the file holds it, where that is settled to the letter."""

    value: str
    action: str
    raw: str = ""


# Given to the letter, quotes included.
FIXED = {
    ("LAUNCHPAD", "LED_1.1"): "var &apos;$padmode&apos; 0 ? get_sample_color 1 : var &apos;$padmode&apos; 1 "
    "? deck left hot_cue 1 ? get_constant 'red' : get_constant '#550000' : nothing",
}
# The classic Launchpad's first key across is settled, and its second is the counterpart: where the plan has the
# loudness of all samples, they change the sample in focus and its group.
OWN_SAMPLES = {
    ("LAUNCHPAD", "X1"): "sampler_volume +5%",
    ("LAUNCHPAD", "X2"): "sampler_volume -5%",
}
# Keys of the AKAI that the plan leaves free: a Switch finds a home there.
FREE = {("APCMINI", "SOLO"), ("APCMINI", "DEVICE")}
# The one LED in the AKAI's bands that has a row; the others show what their key's own script answers.
AKAI_LED = "LED_STOP_ALL_CLIPS"


def deck_of(column):
    """Side and column within the deck of a column of pads."""
    return (SIDES[0], column) if column <= 4 else (SIDES[1], column - 4)


def _deck_pad(row, column):
    side, position = deck_of(column)
    return DECK[row - 1][position - 1], side


def _sample_number(row, column):
    return (row - 1) * 8 + column


def _pad(row, column, colours):
    sample = _samples(_sample_number(row, column))
    key, side = _deck_pad(row, column)
    return (
        by_mode(sample.press, on_deck(key.press, side)),
        by_mode(colours.paint(sample.led), colours.paint(key.led, side)),
    )


def _band(pair, colours):
    samples, decks = pair
    if samples == decks:
        return samples.press, colours.paint(samples.led) if colours.shared else ""
    press = by_mode(samples.press, decks.press)
    return press, colours.paint(by_mode(samples.led, decks.led)) if colours.shared else ""


def _left(n, colours):
    """The left band of the PRO: Shift, then what the right band does while the pads are decks."""
    key = Key("shift", "shift ? {decks} : {dim}") if n == 1 else RIGHT[n - 1][1]
    return key.press, colours.paint(key.led)


def _at(place, colours):
    """Scripts of the key in a place and of its LED."""
    kind, *numbers = place
    if kind == "pad":
        return _pad(*numbers, colours)
    if kind == "across":
        return _band(ACROSS[numbers[0] - 1], colours)
    if kind == "right":
        return _band(RIGHT[numbers[0] - 1], colours)
    if kind == "left":
        return _left(*numbers, colours)
    return FADERS[numbers[0] - 1][1], ""


def _akai_named():
    # SHIFT stands in for the second key of the right band, which is free. It has no LED to show that it is armed, so
    # it arms for as long as it is held.
    return {"SHIFT": "down ? set '$cuedelete' 1 : set '$cuedelete' 0", "SLIDER9": LAST_FADER}


def _mini_mk3_named():
    named = {name: ACROSS[n][0].press for n, name in enumerate(("SESSION", "DRUMS", "KEYS", "USER"), 4)}
    for n, (side, command, centred) in enumerate(FADERS, 1):
        named[f"FADER_{n}"] = command
        named[f"FADER_{n}_TYPE"] = f"constant {int(centred)}"
        named[f"FADER_{n}_COLOR"] = f"color '{RGB.deck[side][0]}'"
        named[f"LED_FADER_{n}"] = command
    return named


_PRO_MODES = ("DRUM", "USER", "VISUAL", "FADER", "SAMFADER", "SAM2FADER")


def _pro_named():
    named = {"DNC_NOTUSED_MODE": "nothing"}
    for on, name in ((1, "ABLETON"), (0, "STANDALONE")):
        named[f"DNC_{name}_MODE"] = f"set '$prolive' {on}"
        named[f"DNC_LED_{name}_MODE"] = f"var '$prolive' {on} ? on : off"
    for n, name in enumerate(_PRO_MODES, 1):
        named[f"DNC_{name}_MODE"] = f"set '$promode' {n}"
        named[f"DNC_LED_{name}_MODE"] = f"var '$promode' {n} ? on : off"
    return named


_NAMED = {"APCMINI": _akai_named, "NLMINIMK3": _mini_mk3_named, "LAUNCHPADPRO": _pro_named}

# --- The other pages of the PRO ---------------------------------------------------------------------------


def _drum(row, column):
    sample = _sample_number(row, column)
    return f"sampler_play_stutter {sample}", RGB.paint(_samples(sample).led)


def _user1(row, column):
    key, side = _deck_pad(row, column)
    return on_deck(key.press, side), RGB.paint(key.led, side)


def _user2(row, column):
    command = f"os2l_cmd {_sample_number(row, column)}"
    return command, RGB.paint(command + " ? {decks} : {dim}")


def _visual(row, column):
    """The four columns of a deck are its track, row by row: 32 pads from its start to its end."""
    side, position = deck_of(column)
    percent = round(((row - 1) * 4 + position - 1) * 100 / 32)
    led = f"@ param_bigger {percent}% song_pos ? {{on}} : @ loaded ? {{rest}} : off"
    return f"deck {side} play ? nothing : deck {side} goto {percent}%", RGB.paint(led, side)


_STEPS = (100, 86, 71, 57, 43, 29, 14, 0)
_CENTRED_STEPS = (100, 83, 67, 50, 38, 25, 13, 0)


def _fader(row, column):
    side, command, centred = FADERS[column - 1]
    percent = (_CENTRED_STEPS if centred else _STEPS)[row - 1]
    verb = command.removeprefix(f"deck {side} ")
    question = "effect_active 1" if " " in verb else f"param_bigger {max(percent - 1, 0)}% {verb}"
    return f"{command} {percent}%", RGB.paint(f"@ {question} ? {{on}} : {{rest}}", side)


def _sample_fader(first):
    def pad(row, column):
        sample = first + column - 1
        return f"sampler_volume_nogroup {sample} {_STEPS[row - 1]}%", RGB.paint(_samples(sample).led)

    return pad


PRO_PAGES = (
    ("USER1_PAD", _user1),
    ("USER2_PAD", _user2),
    ("DRUM_PAD", _drum),
    ("VISUAL_PAD", _visual),
    ("FADER_PAD", _fader),
    ("SAMFADER_PAD", _sample_fader(1)),
    ("SAM2FADER_PAD", _sample_fader(9)),
)
# VirtualDJ takes the later of two rows; they are alike.
PRO_TWICE = "LED_USER1_PAD_4_4"


def _shifted(control):
    """A band key of the PRO while Shift is held: what it does while the pads are the other thing."""
    kind, n = control.place
    if kind == "left":
        return _left(n, RGB)[0]
    samples, decks = (ACROSS if kind == "across" else RIGHT)[n - 1]
    return samples.press if samples == decks else by_mode(decks.press, samples.press)


def _pro_rows(device):
    grid = [(row, column) for row in range(1, 9) for column in range(1, 9)]
    for row, column in grid:
        # How hard a pad is hit sets how loud its sample is.
        loudness = f"sampler_velocity {_sample_number(row, column)}"
        yield Row(f"PAD_VEL_{row}_{column}", by_mode(loudness, "nothing"))
    for page, pad in PRO_PAGES:
        for row, column in grid:
            press, led = pad(row, column)
            name = f"{page}_{row}_{column}"
            yield Row(name, press)
            for _ in range(2 if "LED_" + name == PRO_TWICE else 1):
                yield Row("LED_" + name, led)
    for control in device.controls:
        if control.band:
            yield Row("SHIFT_" + control.name, _shifted(control))


_ON_EXIT = Row("ONEXIT", "set '$flashled' 0")


def rows_of(device):
    """All rows of a device's mapper in the order of its layout, each name once; then what no layout names."""
    colours = colours_of(device)
    named = _NAMED.get(device.identifier, dict)()
    rows = {}
    for control in device.controls:
        if (device.identifier, control.name) in FREE:
            continue
        if control.place == ("none",):
            press, led = named[control.name], ""
        else:
            press, led = _at(control.place, colours)
        if (device.identifier, control.name) in OWN_SAMPLES:
            samples, decks = ACROSS[control.place[1] - 1]
            press = by_mode(OWN_SAMPLES[device.identifier, control.name], decks.press)
        if control.led == AKAI_LED:
            led = "sampler_used ? on : off"
        rows[control.name] = Row(control.name, press)
        if led:
            rows[control.led] = Row(control.led, led, FIXED.get((device.identifier, control.led), ""))
    result = list(rows.values())
    if device.identifier == "LAUNCHPADPRO":
        result += _pro_rows(device)
    if device.identifier in ("LAUNCHPAD", "LAUNCHPADPRO"):
        result.append(_ON_EXIT)
    return result
