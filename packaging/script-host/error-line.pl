# error-line.pl WRAPPED TRACE: prints the line of the script in which the error was raised that the prelude has caught, as the
# trace of the JScript engine tells it; nothing if it doesn't.
use strict;
use warnings;

my ($wrapped, $trace) = @ARGV;

open my $head, '<', $wrapped or exit;
my ($before) = <$head> =~ /: (\d+)$/; # lines, which are not the script's
my $line = 0;
open my $calls, '<', $trace or exit;
while (<$calls>) {
    $line = 0 if /unwind_exception/;
    $line = $1 - $before if !$line && /print_backtrace .* line (\d+) / && $1 > $before;
}
print $line if $line;
