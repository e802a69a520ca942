# SPDX-License-Identifier: LicenseRef-Proprietary
# Draws what gain_modes.lua has printed. Variables: data, the CSV file; picture, the PNG file.

set terminal pngcairo size 1200,1300 font "DejaVu Sans,15"
set output picture
set encoding utf8
set minussign
set datafile separator ","

# The default platform of the simulated board at 40 dB, by the formulas of its README: thermal noise
# in 18 MHz and a noise figure of 5 dB, a quarter of a dB more for each dB below 76 dB of gain; full
# scale is 0 dBm at the converter.
floor = -101.42 + 5 + 0.25 * (76 - 40)
saturation = 0 - 40

# Where curves coincide, the thin one on top leaves the thick one to be seen.
set style line 1 linewidth 8 linecolor rgb "#b0b0b0" # manual
set style line 2 linewidth 4 pointtype 7 pointsize 1.0 linecolor rgb "#0072b2" # slow
set style line 3 linewidth 2 pointtype 9 pointsize 1.0 linecolor rgb "#d55e00" # fast
set style line 4 linewidth 3 pointtype 13 pointsize 1.1 linecolor rgb "#009e73" # slow hybrid
set style line 9 linewidth 1.2 dashtype (8,5) linecolor rgb "#555555"

set lmargin 9
set rmargin 3
set xrange [-120:10]
set xtics -120,10,10
set mxtics 2
set grid xtics ytics linetype 1 linewidth 0.8 linecolor rgb "#e0e0e0"

set multiplot layout 2,1 title "Simulated board: RTWP and gain in the four gain modes\n{/*0.75 Default platform, LTE 20 MHz in band 7, one antenna; a signal 18 MHz wide rises by 2.5 dB every 0.1 s}" font ",19"

set ylabel "RTWP [dBm]"
set yrange [-105:5]
set ytics -100,10,0
set key top left Left reverse opaque box linecolor rgb "#cccccc" height 0.6 spacing 1.2 samplen 3
set label 1 "saturation of manual gain: ".gprintf("%.0f", saturation)." dBm" \
    at -118.5,saturation+2.5 left textcolor rgb "#555555" font ",12"
set label 2 "floor of manual gain: ".gprintf("%.1f", floor)." dBm" \
    at 8.5,floor-2.8 right textcolor rgb "#555555" font ",12"
plot data using 1:2 with lines linestyle 1 title "manual: 40 dB", \
     data using 1:6 with linespoints linestyle 2 title "slow", \
     data using 1:4 with linespoints linestyle 3 title "fast", \
     data using 1:8 with linespoints linestyle 4 title "slow hybrid: held since −120 dBm", \
     floor with lines linestyle 9 notitle, \
     saturation with lines linestyle 9 notitle
unset label 1
unset label 2

set xlabel "Input level [dBm]"
set ylabel "Gain [dB]"
set yrange [-4:84]
set ytics 0,10,80
unset key
plot data using 1:3 with lines linestyle 1, \
     data using 1:7 with linespoints linestyle 2, \
     data using 1:5 with linespoints linestyle 3, \
     data using 1:9 with linespoints linestyle 4
unset multiplot
