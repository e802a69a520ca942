# SPDX-License-Identifier: LicenseRef-Proprietary
# A filter for rlwrap: keeps from the shell what would abort it, a line too long and the end of the
# input. README.md tells how it is used.
use strict;
use warnings;
use lib $ENV{RLWRAP_FILTERDIR} // '/usr/share/rlwrap/filters';
use POSIX qw(:termios_h);
use RlwrapFilter;

my $LONGEST_LINE = 198; # in bytes, without the newline
my $CONTROL_CHARACTER = qr/([\x00-\x08\x0b-\x1f\x7f])/; # all but tab and newline

# As a terminal shows it: ^C.
sub shown {
    my ($control_character) = @_;
    return '^' . ($control_character ^ '@');
}

# What is wrong with a line; nothing if it may be sent.
sub fault {
    my ($line) = @_;
    my $length = length $line;
    return "has $length bytes, and a line takes $LONGEST_LINE" if $length > $LONGEST_LINE;
    # The terminal that the shell reads from would take it for a key; ^C would end the shell.
    return 'has the control character ' . shown($1) if $line =~ $CONTROL_CHARACTER;
    return;
}

# rlwrap has the keys of the shell's terminal for its own. Without one for the end of the input,
# Ctrl-D is a key like any other. None is there once it is the newline, which comes first.
sub take_end_of_input_away {
    my $terminal = $ENV{RLWRAP_MASTER_PTY_FD} // return;
    my $settings = POSIX::Termios->new;
    $settings->getattr($terminal);
    $settings->setcc(VEOF, ord "\n");
    $settings->setattr($terminal, TCSANOW);
    return;
}

my $filter = RlwrapFilter->new;

$filter->help_text("Usage: rlwrap -z 'perl $0' sorelapp-guard\n"
    . 'refuses lines that would abort sorelapp; Ctrl-D on an empty line is exit');

# What was typed, or pasted, which may be several lines. What is refused is shown once more, since
# rlwrap has taken it off the screen; the newline that is sent instead brings the prompt back.
$filter->input_handler(sub {
    my ($input) = @_;
    my @lines = split /\n/, $input;
    for my $number (1 .. @lines) {
        my $fault = fault($lines[$number - 1]) // next;
        my $which = @lines == 1 ? 'the line' : "line $number";
        $input =~ s/$CONTROL_CHARACTER/shown($1)/ge;
        $filter->send_output_oob("$input\nnot sent: $which $fault");
        return '';
    }
    return $input;
});

# Ctrl-D, as the file inputrc arranges it: only an empty line is another one afterwards.
$filter->hotkey_handler(sub {
    my (undef, $before, $after, @history) = @_;
    ($before, $after) = ('exit', "\n") if $before . $after eq '';
    return ('', $before, $after, @history);
});

take_end_of_input_away();
$filter->run;
