// SPDX-License-Identifier: LicenseRef-Proprietary
// Values at the edge of something.
#pragma once

#include <cstdint>
#include <limits>

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// Where conversions change, and where doubles themselves do.
inline constexpr double edges[] = {0.0,
                                   0.5,
                                   1.0,
                                   2.0,
                                   32767.0,
                                   32768.0,
                                   65535.0,
                                   65536.0,
                                   2147483647.0,
                                   2147483648.0,
                                   2147483649.0,
                                   4294967295.0,
                                   4294967296.0,
                                   4294967297.0,
                                   9007199254740992.0,
                                   9223372036854775808.0,
                                   18446744073709551616.0,
                                   1e10,
                                   1e15,
                                   1e300,
                                   std::numeric_limits<double>::denorm_min(),
                                   std::numeric_limits<double>::min(),
                                   std::numeric_limits<double>::max(),
                                   infinity,
                                   notANumber};

inline constexpr const char *words[] = {"12",
                                        " 12 ",
                                        "\t\n-7\r\n",
                                        "0x1F",
                                        "0X1f",
                                        "-0x1",
                                        "0x",
                                        "0x1p4",
                                        "1e3",
                                        "1E+3",
                                        "-5",
                                        "-0",
                                        "+7",
                                        "1e400",
                                        "-1e400",
                                        "0.5",
                                        "-0.5",
                                        "-1e-9",
                                        "65536",
                                        "4294967296",
                                        "2147483648",
                                        "nan",
                                        "-nan",
                                        "inf",
                                        "-inf",
                                        "infinit",
                                        "infinity",
                                        "",
                                        " ",
                                        "0",
                                        "-",
                                        "12abc",
                                        "1 2",
                                        "abc",
                                        "nil",
                                        "1e",
                                        "1e+",
                                        ".5",
                                        "5.",
                                        ".",
                                        "--1",
                                        "1,5",
                                        "00000000000000000000000000000012",
                                        "99999999999999999999"};

inline constexpr int statuses[] = {1,   2,     3,      4,       5,         6,        -1,
                                   256, 65536, -65536, 1 << 24, INT32_MAX, INT32_MIN};
inline constexpr std::int32_t integers[] = {0, 1, -1, 127, -1174, INT32_MAX, INT32_MIN};
inline constexpr std::uint32_t integerWords[] = {0, 1, 0x7fffffff, 0x80000000, 0xffffffff};
inline constexpr float readings[] = {0.0F,
                                     -0.0F,
                                     1.5F,
                                     -113.7F,
                                     0.1F,
                                     std::numeric_limits<float>::max(),
                                     std::numeric_limits<float>::denorm_min(),
                                     std::numeric_limits<float>::infinity(),
                                     -std::numeric_limits<float>::infinity(),
                                     std::numeric_limits<float>::quiet_NaN()};
inline constexpr const char *texts[] = {nullptr, "", "text", "0",
                                        "a text of more than one line\n2"};
