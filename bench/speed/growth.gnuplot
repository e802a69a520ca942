# SPDX-License-Identifier: LicenseRef-Proprietary
# Draws what an element and a line cost the more there are, as pictures.py writes it. Variables:
# data, the file; count, its curves; picture, the PNG file.

set terminal pngcairo size 1000,520 font "DejaVu Sans,12"
set output picture
set encoding utf8
set datafile separator "\t"

set logscale x
set format x "%.0s%c"
set xrange [80:1.3e6]
set yrange [0:1.6]
set grid xtics ytics linetype 1 linewidth 0.6 linecolor rgb "#e4e4e4"
set key bottom left Left reverse
set xlabel "elements, lines"
set ylabel "cost of one, to that at the smallest size"
set arrow from graph 0, first 1.25 to graph 1, first 1.25 nohead dashtype 2 linecolor rgb "#cc0000"
plot for [i = 0:count - 1] data index i using 1:2 with linespoints linewidth 2 pointtype 7 \
         title columnheader(1), \
     NaN with lines dashtype 2 linecolor rgb "#cc0000" title "goal: at most"
