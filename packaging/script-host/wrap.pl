# wrap.pl SCRIPT PRELUDE FOLDER: prints what the script host is given for a script: the prelude, then the script itself,
# in plain ASCII, since the script host reads a file in the system's code page. The first line that is printed is a comment
# with the number of lines before the script. FOLDER is the script's folder as the script host sees it.
use strict;
use warnings;

my ($script, $prelude, $folder) = @ARGV;

sub content {
    my ($path) = @_;
    open my $file, '<:raw', $path or die "$path: $!\n";
    local $/;
    my $text = <$file>;
    return defined $text ? $text : '';
}

# Text in UTF-8, UTF-16 with its mark, or the Windows code page (taken as Latin-1, which it extends).
sub decoded {
    my ($bytes) = @_;
    if ($bytes =~ s/^(\xff\xfe|\xfe\xff)//) {
        my @units = unpack $1 eq "\xff\xfe" ? 'v*' : 'n*', $bytes;
        my $text = '';
        while (@units) {
            my $unit = shift @units;
            if ($unit >= 0xd800 && $unit < 0xdc00 && @units && $units[0] >= 0xdc00 && $units[0] < 0xe000) {
                $unit = 0x10000 + (($unit - 0xd800) << 10) + (shift(@units) - 0xdc00);
            }
            $text .= chr $unit;
        }
        return $text;
    }
    $bytes =~ s/^\xef\xbb\xbf//;
    my $text = $bytes;
    return utf8::decode($text) ? $text : $bytes;
}

sub escape {
    my ($character) = @_;
    my $code = ord $character;
    return sprintf '\\u%04x', $code if $code < 0x10000;
    $code -= 0x10000;
    return sprintf '\\u%04x\\u%04x', 0xd800 + ($code >> 10), 0xdc00 + ($code & 0x3ff);
}

sub literal {
    my ($text) = @_;
    $text =~ s/(["\\])/\\$1/g;
    $text =~ s/\t/\\t/g;
    $text =~ s/\r?\n/\\n/g;
    $text =~ s/([^ -~])/escape($1)/ge;
    return "\"$text\"";
}

(my $name = $script) =~ s{.*/}{};
utf8::decode($name);
utf8::decode($folder);
my $text = decoded(content($script));
my $head = content($prelude) . "tarnwell_script_host.place(" . literal($folder) . ', ' . literal($name) . ");\n";
my $body;
if ($name =~ /\.vbs$/i) {
    $body = "tarnwell_script_host.basic(" . literal($text) . ");\ntarnwell_script_host.finished();\n";
} else {
    # Inside the braces of a try, functions and variables are as global as outside. A backslash before the character, as
    # in a regular expression, is already there and must not make the escape a plain letter.
    $text =~ s/\r\n?/\n/g;
    $text =~ s/(?<!\\)((?:\\\\)*)\\([^\x00-\x7e])/$1 . escape($2)/ge;
    $text =~ s/([^\x00-\x7e])/escape($1)/ge;
    $head .= "try {\n";
    $body = "$text\n} catch (tarnwell_script_error) { tarnwell_script_host.failed(tarnwell_script_error); }\n"
        . "tarnwell_script_host.finished();\n";
}
my $lines = 1 + ($head =~ tr/\n//);
print "// lines before the script: $lines\n", $head, $body;
