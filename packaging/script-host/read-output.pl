# read-output.pl OUTCOME: passes on what a script prints, in UTF-8 and with plain line ends, as it comes; writes how the
# script ended, as the prelude tells it, into the file OUTCOME.
use strict;
use warnings;

my ($outcome) = @ARGV;
$| = 1;
binmode STDIN, ':raw';
binmode STDOUT, ':utf8';
binmode STDERR, ':utf8';

# The upper half of code page 437, in which the script host writes what did not pass through the prelude.
my @upper = map { chr hex } qw(
    c7 fc e9 e2 e4 e0 e5 e7 ea eb e8 ef ee ec c4 c5 c9 e6 c6 f4 f6 f2 fb f9 ff d6 dc a2 a3 a5 20a7 192
    e1 ed f3 fa f1 d1 aa ba bf 2310 ac bd bc a1 ab bb
    2591 2592 2593 2502 2524 2561 2562 2556 2555 2563 2551 2557 255d 255c 255b 2510
    2514 2534 252c 251c 2500 253c 255e 255f 255a 2554 2569 2566 2560 2550 256c 2567
    2568 2564 2565 2559 2558 2552 2553 256b 256a 2518 250c 2588 2584 258c 2590 2580
    3b1 df 393 3c0 3a3 3c3 b5 3c4 3a6 398 3a9 3b4 221e 3c6 3b5 2229
    2261 b1 2265 2264 2320 2321 f7 2248 b0 2219 b7 221a 207f b2 25a0 a0);

# A run of UTF-16 units; half a pair reads as the replacement character.
sub units {
    my @units = map { hex } $_[0] =~ /([0-9a-f]{4})/g;
    my $text = '';
    while (@units) {
        my $unit = shift @units;
        if ($unit >= 0xd800 && $unit < 0xdc00 && @units && $units[0] >= 0xdc00 && $units[0] < 0xe000) {
            $unit = 0x10000 + (($unit - 0xd800) << 10) + (shift(@units) - 0xdc00);
        }
        $text .= chr($unit >= 0xd800 && $unit < 0xe000 ? 0xfffd : $unit);
    }
    return $text;
}

while (my $line = <STDIN>) {
    $line =~ s/\r?\n$/\n/;
    my $kind = $line =~ s/^\x01([oe])// ? $1 : '';
    $line =~ s/\x01n\n$//;
    $line =~ s/([\x80-\xff])/$upper[ord($1) - 0x80]/g;
    $line =~ s/((?:\x01u[0-9a-f]{4})+)/units($1)/ge;
    if ($kind eq 'o') {
        open my $file, '>:utf8', $outcome or die "$outcome: $!\n";
        print $file $line;
        close $file;
    } elsif ($kind eq 'e') {
        print STDERR $line;
    } else {
        print $line;
    }
}
