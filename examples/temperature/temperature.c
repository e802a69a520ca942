/* SPDX-License-Identifier: LicenseRef-Proprietary */
/* Built with CMake, or by: cc temperature.c $(pkg-config --cflags --libs sorel) -o temperature */
#include <sorel.h>
#include <stdio.h>

int main(void)
{
    RadioContext *radio = radioOpen();
    printf("%s: %.2f degC\n", radioGetPlatformName(radio), radioGetTemperature(radio));
    return radioClose(radio) == RADIO_ESUCCESS ? 0 : 1;
}
