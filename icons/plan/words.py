"""Says in a few words what a key's script does."""

import re

_SIDE = r"deck (?:left|right) "

# Script of a key, to be matched whole -> words. A script that is not here stops the drawing.
_WORDS = [
    (re.compile(pattern.replace("@", _SIDE)), words)
    for pattern, words in (
        (r"nothing", "nothing"),
        (r"shift", "shift"),
        # samples
        (r"sampler_play_stop (\d+)", r"sample \1"),
        (r"sampler_play_stutter (\d+)", r"sample \1 from its start"),
        (r"sampler_volume_master \+5%", "samples louder"),
        (r"sampler_volume_master -5%", "samples softer"),
        (r"sampler_volume \+5%", "sample in focus louder"),
        (r"sampler_volume -5%", "sample in focus softer"),
        (r"sampler_velocity (\d+)", r"strength of sample \1"),
        (r"sampler_volume_nogroup (\d+) (\d+%)", r"sample \1 at \2"),
        (r"sampler_bank -1", "bank before"),
        (r"sampler_bank \+1", "bank after"),
        (r"sampler_bank (\d)", r"bank \1"),
        (r"sampler_stop all", "stop all samples"),
        # a deck
        (r"var '\$cuedelete' \? @delete_cue (\d) & set '\$cuedelete' 0 : @hot_cue \1", r"hot cue \1"),
        (r"@loop 1", "loop of 1 beat"),
        (r"@loop (\d)", r"loop of \1 beats"),
        (r"@loop_half", "loop half"),
        (r"@loop_double", "loop double"),
        (r"@goto -(\d)", r"\1 beats back"),
        (r"@goto \+(\d)", r"\1 beats on"),
        (r"@effect_active (\d)", r"effect \1"),
        (r"@dump while_pressed", "censor"),
        (r"@pad (\d)", r"page's pad \1"),
        (r"(?:@pad_page \d \? @pad_page \d : )+@pad_page 1", "next page"),
        (r"@cue_stop", "cue"),
        (r"@play_pause", "play"),
        (r"@sync", "sync"),
        (r"@play \? nothing : @load", "load"),
        (r"@play \? nothing : @goto (\d+%)", r"go to \1 of the track"),
        (r"@pfl", "headphones"),
        (r"@level", "volume"),
        (r"@eq_low", "bass"),
        (r"@filter", "filter"),
        (r"@effect_slider 1 1", "effect 1 amount"),
        (r"@level (\d+%)", r"volume at \1"),
        (r"@eq_low (\d+%)", r"bass at \1"),
        (r"@filter (\d+%)", r"filter at \1"),
        (r"@effect_slider 1 1 (\d+%)", r"effect 1 amount at \1"),
        # both decks, and the program
        (r"@slicer 'length' -1 & @slicer 'length' -1", "slices shorter"),
        (r"@slicer 'length' \+1 & @slicer 'length' \+1", "slices longer"),
        (r"@loop_exit & @loop_exit", "leave all loops"),
        (r"@effect_disable_all & @effect_disable_all", "all effects off"),
        (r"cycle '\$padmode' 2 & set '\$cuedelete' 0", "samples or decks"),
        (r"toggle '\$cuedelete'", "delete a cue"),
        (r"down \? set '\$cuedelete' 1 : set '\$cuedelete' 0", "held: delete a cue"),
        (r"toggle '\$flashled'", "flash on beat"),
        (r"quantize_all", "quantize"),
        (r"browser_scroll -1", "browser up"),
        (r"browser_scroll \+1", "browser down"),
        (r"browser_window 'folders,songs'", "folders or songs"),
        (r"master_volume", "master volume"),
        (r"os2l_cmd (\d+)", r"lights command \1"),
        # what some devices tell VirtualDJ about themselves
        (r"constant 0", "from below"),
        (r"constant 1", "from the middle"),
        (r"color '#FF0000'", "red"),
        (r"color '#00FF00'", "green"),
        (r"set '\$promode' (\d)", r"page light \1"),
        (r"set '\$prolive' 1", "live set light"),
        (r"set '\$prolive' 0", "standalone light"),
    )
]
_BY_MODE = re.compile(r"var '\$padmode' 0 \? ([^?:]+) : (.+)")


def in_words(script):
    for pattern, words in _WORDS:
        match = pattern.fullmatch(script)
        if match:
            return match.expand(words)
    raise SystemExit(f"icons/plan/words.py has no words for: {script}")


def by_mode(script):
    """Scripts of a key while the pads are samples and while they are decks; one and the same for most."""
    match = _BY_MODE.fullmatch(script)
    return (match[1], match[2]) if match else (script, script)


def side(script):
    """The deck that a script works on: "left", "right", or "both", which counts none as well."""
    sides = set(re.findall(r"\bdeck (left|right) ", script))
    return sides.pop() if len(sides) == 1 else "both"
