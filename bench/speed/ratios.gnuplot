# SPDX-License-Identifier: LicenseRef-Proprietary
# Draws the ratios of what pictures.py writes, and their goals. Variables: data, the file; count, its
# lines; machines, their names; whole, 1 where the ratios lie around 1 and not far below; picture, the
# PNG file.

set terminal pngcairo size 1200,120 + 19 * count font "DejaVu Sans,11"
set output picture
set encoding utf8
set datafile separator "\t"

set lmargin 56
set tmargin 3
set key outside top right horizontal samplen 1
set yrange [-count + 0.4:0.6]
set ytics scale 0
set grid xtics ytics linetype 1 linewidth 0.6 linecolor rgb "#e4e4e4"
set xlabel "sorelapp's figure to the other's"
if (whole) {
    set xrange [0.6:1.1]
} else {
    set logscale x
    set xrange [0.01:2]
    set xtics (0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1, 2)
}
set arrow from 1, graph 0 to 1, graph 1 nohead linewidth 1.2 linecolor rgb "#888888"

goal = words(machines) + 2
label = goal + 1
array colour[3] = ["#0072b2", "#d55e00", "#009e73"]
plot data using goal:1:ytic(label) with points pointtype "|" linecolor rgb "#cc0000" title "goal", \
     for [i = 1:words(machines)] data using (column(i + 1)):1 with points pointtype 7 \
         pointsize 1.1 linecolor rgb colour[i] title word(machines, i)
