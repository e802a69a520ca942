# SPDX-License-Identifier: LicenseRef-Proprietary
# Draws what an element and a line cost the more there are, as pictures.py writes it. Variables:
# picture, the PNG file. The files table_growth and line_growth lie in the folder.

set terminal pngcairo size 1000,520 font "DejaVu Sans,12"
set output picture
set encoding utf8
set datafile separator "\t"

set logscale x
set format x "%.0s%c"
set xrange [80:1.3e6]
set yrange [0:1.6]
set grid xtics ytics linetype 1 linewidth 0.6 linecolor rgb "#e4e4e4"
set key top left
set xlabel "elements, lines"
set ylabel "cost of one, to that at the smallest size"
set arrow from graph 0, first 1.25 to graph 1, first 1.25 nohead dashtype 2 linecolor rgb "#cc0000"
plot "table_growth" using 1:2 with linespoints linewidth 2 pointtype 7 linecolor rgb "#0072b2" \
         title "an element of a register table", \
     "line_growth" using 1:2 with linespoints linewidth 2 pointtype 7 linecolor rgb "#d55e00" \
         title "a line at the prompt", \
     NaN with lines dashtype 2 linecolor rgb "#cc0000" title "goal: at most"
