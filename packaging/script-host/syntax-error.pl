# syntax-error.pl WRAPPED TRACE: prints ": Syntax error: ..." and, if there is one such line only, its number before it, for a
# script that the JScript engine could not read; nothing for another end. The engine's warning quotes the line at which it gave
# up; here it is found again in what the engine was given.
use strict;
use warnings;

my ($wrapped, $trace) = @ARGV;

my $text;
open my $warnings, '<', $trace or exit;
while (<$warnings>) {
    $text = $1 if /script_parse parser failed around .* in line L"(.*)"(?:\.\.\.)?$/;
}
exit unless defined $text;
$text =~ s/\\t/\t/g;
$text =~ s/\\(["\\])/$1/g;
if ($text =~ /tarnwell_script_host/) {
    print ': Syntax error: the script ends too early';
    exit;
}

open my $script, '<', $wrapped or exit;
chomp(my @lines = <$script>);
my ($before) = $lines[0] =~ /: (\d+)$/;
my @at = grep { index($lines[$_], $text) == 0 } $before .. $#lines;
printf '%s: Syntax error: %s', @at == 1 ? ' in line ' . ($at[0] + 1 - $before) : '', $text;
