-- SPDX-License-Identifier: LicenseRef-Proprietary
return {
    name = "help",
    module = "sorel.help",
    title = "what you are reading; more with help(help)",
    text = 'require "sorel.help" makes the global help, the only one that a module of the shell '
        .. "makes. At the prompt the word help alone calls it.",
    entries = {
        {
            name = "help",
            text = "Prints help. Case makes no difference. A misspelt name suggests the nearest.",
            arguments = {
                { name = "subject", type = "any", optional = true,
                    text = "nothing: an overview; a name of a subject, function, constant or "
                        .. "group; a word or several: whatever mentions them all; or a function or "
                        .. "table itself" },
            },
            example = 'help "RADIO_STATE"\nhelp(radioSetRxGain)\nhelp "rtwp antenna"',
        },
    },
}
