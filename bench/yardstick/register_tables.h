/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* The functions that take a table of register words, written by hand for their rule and nothing
 * else: every element goes through its text. The shell's own are to give the same in less time. */
#ifndef BENCH_YARDSTICK_REGISTER_TABLES_H
#define BENCH_YARDSTICK_REGISTER_TABLES_H

#include <lua.h>

#ifdef __cplusplus
extern "C" {
#endif

int yardstickSetRxGainRegisters(lua_State *L);
int yardstickSetTxPowerRegisters(lua_State *L);

#ifdef __cplusplus
}
#endif

#endif
