"""Which tests concern which file of the program, in the order in which they are run: those without a window first."""

from fnmatch import fnmatchcase

MODELS = ["test_models", "test_drops", "test_mymodel", "test_vdjmodel", "test_controller"]
# fmt: off
TESTS = {
    "app/combostyle.cpp": ["test_combos", "test_styles", "test_popups"],
    "app/dialog.cpp": ["test_about"],
    "app/dialog.h": ["test_about"],
    "app/mainwindow.cpp": [
        "test_start", "test_slots", "test_form", "test_styles", "test_accessible", "test_commands", "test_banks",
        "test_ticks", "test_keys", "test_menus", "test_combos", "test_drags", "test_scales",
    ],
    "app/mainwindow.h": ["test_start", "test_slots", "test_commands", "test_ticks"],
    "app/mainwindow_commands.cpp": [
        "test_commands", "test_slots", "test_loadshow", "test_projects", "test_exports",
        "test_styles", "test_about", "test_banks", "test_keys", "test_start", "test_drags",
    ],
    "app/mainwindow_styles.cpp": ["test_styles", "test_combos", "test_start"],
    "app/messagebox.cpp": ["test_commands", "test_styles", "test_loadshow", "test_exports", "test_projects"],
    "app/scaling.cpp": ["test_scaling", "test_start", "test_scales"],
    "app/scaling.h": ["test_scaling", "test_start", "test_scales"],
    "app/scaling_x11.cpp": ["test_scaling", "test_scales"],
    "app/stylesheets.h": ["test_styles", "test_form", "test_about", "test_menus", "test_commands"],
    "app/viewhelpers.h": ["test_pages", "test_banks", "test_keys", "test_combos", "test_devicepage", "test_commands"],
    "devices/catalogue.cpp": ["test_catalogue", "test_mappers", "test_start", "test_devicepage"],
    "devices/device.h": ["test_mapping", "test_devicepage", "test_menus", "test_exports"],
    "devices/grid.cpp": ["test_grid", "test_devicepage"],
    "devices/grid.h": ["test_grid", "test_controller", "test_mydelegate", "test_devicepage", "test_ticks"],
    "devices/keyrecords.cpp": ["test_keyrecords", "test_mappers", "test_factorymappers", "test_exports"],
    "devices/keyrecords.h": ["test_keyrecords", "test_mapping", "test_exports"],
    "devices/mainwindow_devices.cpp": [
        "test_mappers", "test_devicepage", "test_start", "test_slots", "test_banks", "test_loadshow",
        "test_styles", "test_commands", "test_menus", "test_ticks", "test_exports", "test_projects",
    ],
    "files/digit.h": ["test_inifile", "test_mappers"],
    "files/inifile.cpp": ["test_inifile", "test_liveshow"],
    "files/readfile.cpp": ["test_liveshow", "test_mappers", "test_projectfile"],
    "files/path.h": ["test_savefile", "test_exports"],
    "files/savefile.cpp": ["test_savefile", "test_projects", "test_exports"],
    "files/xmlfile.cpp": ["test_keyrecords", "test_mappers", "test_projectfile", "test_catalogue", "test_projects"],
    "files/xmlfile.h": ["test_keyrecords", "test_mappers", "test_projectfile"],
    "script/escape.cpp": ["test_escape", "test_keyrecords", "test_mapping", "test_exports", "test_slots"],
    "export/mainwindow_export.cpp": [
        "test_exports", "test_workflow", "test_commands", "test_slots", "test_styles",
    ],
    "export/mapping.cpp": ["test_mapping", "test_exports"],
    "export/mapping.h": ["test_mapping"],
    "export/padspage.cpp": ["test_padspage", "test_exports"],
    "script/script.cpp": ["test_padspage", "test_mapping", "test_escape", "test_keyrecords"],
    "script/script.h": ["test_padspage", "test_mapping"],
    "project/mainwindow_project.cpp": [
        "test_projects", "test_commands", "test_slots", "test_banks", "test_devicepage", "test_styles",
    ],
    "project/projectfile.cpp": ["test_projectfile", "test_projects"],
    "project/projectfile.h": ["test_projectfile", "test_projects"],
    "show/liveshow.cpp": ["test_liveshow", "test_inifile", "test_loadshow", "test_pages"],
    "show/mainwindow_pages.cpp": ["test_pages", "test_loadshow", "test_slots", "test_ticks", "test_exports"],
    "show/mainwindow_show.cpp": ["test_loadshow", "test_slots", "test_commands", "test_styles", "test_projects"],
    "tables/assignments.cpp": ["test_assignments", "test_ticks", "test_menus", "test_commands"],
    "tables/assignments.h": ["test_assignments", "test_ticks", "test_menus"],
    "tables/cellfields.cpp": [*MODELS, "test_dragpayload", "test_projectfile", "test_ticks"],
    "tables/controller.cpp": [
        "test_models", "test_drops", "test_controller", "test_dragpayload", "test_ticks", "test_menus",
        "test_devicepage",
    ],
    "tables/dragpayload.cpp": ["test_dragpayload", *MODELS, "test_ticks"],
    "tables/dragpayload.h": [*MODELS, "test_dragpayload", "test_ticks"],
    "devices/keytooltip.cpp": ["test_controller", "test_mydelegate"],
    "tables/mainwindow_assignments.cpp": [
        "test_ticks", "test_menus", "test_slots", "test_commands", "test_loadshow", "test_banks", "test_projects",
        "test_devicepage", "test_styles",
    ],
    "tables/mainwindow_banks.cpp": [
        "test_banks", "test_start", "test_slots", "test_exports", "test_loadshow", "test_commands", "test_projects",
        "test_ticks",
    ],
    "tables/mainwindow_menus.cpp": ["test_menus", "test_slots", "test_ticks", "test_exports", "test_styles"],
    "tables/mainwindow_keys.cpp": ["test_keys"],
    "tables/mydelegate.cpp": ["test_mydelegate", "test_styles", "test_devicepage"],
    "tables/mymodel.cpp": ["test_models", "test_mymodel", "test_dragpayload", "test_pages", "test_loadshow", "test_ticks"],
    "tables/padbanks.h": ["test_assignments", "test_padspage", "test_banks", "test_exports", "test_ticks"],
    "tables/tablekeys.cpp": ["test_keys"],
    "tables/tableview.cpp": ["test_keys", "test_devicepage", "test_drags"],
    "tables/vdjmodel.cpp": ["test_models", "test_drops", "test_vdjmodel", "test_dragpayload", "test_ticks", "test_exports", "test_banks"],
}
# fmt: on

# What is broken in vain here: the entry lies in no library, and of the ways to ask a desktop one alone is built.
NOT_TRIED = ["app/main.cpp", "app/scaling_other.cpp", "app/scaling_windows.cpp"]

# Where random gestures on the window lead, which take longer than the tests of a subject.
PLAYED = ["app/mainwindow*", "devices/*", "export/*", "files/*", "project/*", "show/*", "script/*", "tables/*"]


def tests_of(file):
    """The names of the tests that a broken file must turn red, the quickest first."""
    return TESTS[file] + ["test_monkey"] * any(fnmatchcase(file, pattern) for pattern in PLAYED)
