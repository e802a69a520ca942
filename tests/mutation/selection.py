# SPDX-License-Identifier: LicenseRef-Proprietary
"""Which tests a mutation of a file is tried on first. Where those pass, all others follow. The
order costs time only."""

RUNTIME = ["binding_runtime_test"]
SECOND = ["second_binding_test"]
RADIO = ["binding_radio_test"]
WRAPPERS = ["binding_radio_differential_test"]

FIRST = {
    "app/context.cpp": ["app_context_test", "e2e.context", "e2e.start_up"],
    "app/context.h": ["app_context_test"],
    "app/guards.cpp": ["e2e.bit", "e2e.socket"],
    "app/guards.h": ["e2e.bit"],
    "app/interactive.cpp": ["app_interactive_test", "app_error_values_test", "e2e.prompt", "e2e.line_reader"],
    "app/interactive.h": ["app_interactive_test"],
    "app/libraries.cpp": ["app_libraries_test", "e2e.bit"],
    "app/libraries.h": ["app_libraries_test"],
    "app/lua_state.cpp": ["app_lua_state_test", "e2e.lua_state"],
    "app/lua_state.h": ["app_lua_state_test"],
    "app/opening.cpp": ["app_start_up_test", "e2e.start_up"],
    "app/opening.h": ["app_start_up_test"],
    "app/options.cpp": ["app_options_test", "e2e.command_line"],
    "app/options.h": ["app_options_test", "e2e.command_line"],
    "app/scripts.cpp": ["app_scripts_test", "e2e.failing_scripts", "e2e.start_up", "e2e.lua_state"],
    "app/scripts.h": ["e2e.failing_scripts"],
    "app/socket_library.cpp": ["app_libraries_test", "e2e.socket"],
    "app/sorelapp.cpp": ["e2e.start_up", "e2e.command_line", "e2e.lua_state"],
    "app/version.cpp": ["e2e.version"],
    "app/version.h": ["e2e.version"],
    "binding/radio/arguments.h": [*WRAPPERS, "e2e.argument_checks", "e2e.conversions"],
    "binding/radio/block_guard.cpp": ["e2e.register_arrays", "register_tables_test"],
    "binding/radio/block_guard.h": ["e2e.register_arrays"],
    "binding/radio/catalogue.cpp": [*RADIO, *WRAPPERS],
    "binding/radio/catalogue.h": RADIO,
    "binding/radio/constants.cpp": [*RADIO, "e2e.constants"],
    "binding/radio/constants.h": RADIO,
    "binding/radio/errors.cpp": ["e2e.argument_checks"],
    "binding/radio/errors.h": [*WRAPPERS, "e2e.argument_checks"],
    "binding/radio/fixed_string.h": [*RADIO, *WRAPPERS],
    "binding/radio/hooks.cpp": [*RADIO, "e2e.radio_hooks"],
    "binding/radio/hooks.h": RADIO,
    "binding/radio/native_pointers.cpp": ["e2e.calibration_and_debug_file", *WRAPPERS],
    "binding/radio/native_pointers.h": ["e2e.calibration_and_debug_file"],
    "binding/radio/numbers.cpp": RADIO,
    "binding/radio/numbers.h": [*RADIO, *WRAPPERS],
    "binding/radio/opener.cpp": [*RADIO, *SECOND],
    "binding/radio/pointer_arguments.h": [*RADIO, "e2e.calibration_and_debug_file"],
    "binding/radio/register_tables.cpp": ["e2e.register_tables", "e2e.register_metamethods",
                                          "e2e.register_arrays", "register_tables_test"],
    "binding/radio/register_tables.h": ["e2e.register_tables"],
    "binding/radio/register_word.cpp": [*RADIO, "register_tables_test"],
    "binding/radio/register_word.h": [*RADIO, "register_tables_test"],
    "binding/radio/results.h": [*WRAPPERS, "e2e.results"],
    "binding/radio/types.cpp": [*RADIO, *SECOND],
    "binding/radio/types.h": RADIO,
    "binding/radio/wrapper.h": [*WRAPPERS, "e2e.argument_checks"],
    "binding/radio_wrap.h": RADIO,
    "binding/runtime/assertion.h": [*RUNTIME, "e2e.line_reader"],
    "binding/runtime/class_table.cpp": [*RUNTIME, *SECOND],
    "binding/runtime/class_table.h": RUNTIME,
    "binding/runtime/constants.cpp": RUNTIME,
    "binding/runtime/constants.h": RUNTIME,
    "binding/runtime/fields.h": [*RUNTIME, *SECOND],
    "binding/runtime/invariant.h": RUNTIME,
    "binding/runtime/module_table.cpp": RUNTIME,
    "binding/runtime/module_table.h": RUNTIME,
    "binding/runtime/pointer_objects.cpp": [*RUNTIME, *SECOND],
    "binding/runtime/pointer_objects.h": RUNTIME,
    "binding/runtime/records.h": [*RUNTIME, *SECOND],
    "binding/runtime/registry.cpp": [*RUNTIME, *SECOND],
    "binding/runtime/registry.h": [*RUNTIME, *SECOND],
    "binding/runtime/types.cpp": RUNTIME,
    "binding/runtime/types.h": RUNTIME,
}

# All programs, the quickest first.
PROGRAMS = [
    "app_libraries_test", "app_interactive_test", "app_lua_state_test", "app_options_test",
    "app_context_test", "app_start_up_test", "app_scripts_test",
    "binding_runtime_test", "binding_radio_test", "second_binding_test",
    "app_error_values_test", "app_allocations_test", "binding_runtime_allocations_test",
    "binding_radio_allocations_test", "binding_radio_differential_test", "register_tables_test",
]

# What the end-to-end tests need besides the shell.
BESIDES = ["driver/all", "tests/e2e/all", "tests/odd_drivers/all", "tests/recording_driver/all"]

# Those of which each test has a process of its own, and single tests that need one.
APART = {
    "binding_radio_test": ["RadioTypesBefore.areNotInUse", "RadioTypes.areFoundByEitherName",
                           "RadioTypes.haveTheirNamesAndTextsInOrder"],
    "second_binding_test": True,
}

# What takes as long as all the rest.
SKIPPED = {
    "register_tables_test": ["RegisterNumbers.arriveAsTheWordsOfTheirTexts"],
}

# Tests that take long and would say nothing that others do not, or that look at the simulated board
# and not at the shell.
LEFT_OUT = {"e2e.gain_modes", "e2e.public_figures", "e2e.simulated_board", "e2e.scenario",
            "e2e.scenario_traces", "e2e.trace", "e2e.forwarding", "e2e.debug_log"}


def all_files(tests):
    return sorted(name for name in tests
                  if name.startswith("e2e.") and name not in LEFT_OUT)
