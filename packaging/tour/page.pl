# page.pl STEPS MAILS FOLDER: prints the tour as one page of HTML that needs nothing beside itself. STEPS is what
# desk/scripts/first_steps.js prints, MAILS what desk/scripts/tour.js prints, FOLDER has the picture of each step, 01.png and so on.
use strict;
use warnings;
use MIME::Base64 qw(encode_base64);
binmode STDOUT, ':raw';

my ($steps_file, $mails_file, $folder) = @ARGV;

sub content {
    my ($path) = @_;
    open my $file, '<:raw', $path or die "$path: $!\n";
    local $/;
    my $text = <$file>;
    return defined $text ? $text : '';
}

sub escaped {
    my ($text) = @_;
    my %entity = ('&' => '&amp;', '<' => '&lt;', '>' => '&gt;', '"' => '&quot;');
    $text =~ s/([&<>"])/$entity{$1}/g;
    return $text;
}

# The attributes of a picture: its size stands in the file's header.
sub picture {
    my ($path) = @_;
    return undef unless -s $path;
    my $bytes = content($path);
    my ($width, $height) = unpack 'NN', substr $bytes, 16, 8;
    return "width=\"$width\" height=\"$height\" src=\"data:image/png;base64," . encode_base64($bytes, '') . '"';
}

my (@steps, $done);
for my $line (split /\n/, content($steps_file)) {
    my ($number, $state, $title, $what, $result) = map { escaped($_) } split /\t/, $line, 5;
    next unless defined $result && $number =~ /^\d+$/;
    push @steps, {number => $number, state => $state, title => $title, what => $what, result => $result};
    $done++ if $state eq 'done';
}
$done ||= 0;
my $count = @steps;

print <<'HEAD';
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>A tour of Tarnwell</title>
<style>
:root { color-scheme: light dark; --line: #c4c9d0; --good: #176b34; --bad: #b3261e; --link: #0b57d0 }
@media (prefers-color-scheme: dark) { :root { --line: #4a4f57; --good: #7bd69a; --bad: #ff9a91; --link: #a8c7fa } }
body { font: 1rem/1.5 system-ui, sans-serif; max-width: 75rem; margin: 0 auto; padding: 1rem }
a { color: var(--link) }
img { display: block; max-width: 100%; height: auto; border: 1px solid var(--line) }
section { margin: 2.5rem 0 }
.scroll { overflow-x: auto }
table { border-collapse: collapse; width: 100% }
th, td { text-align: left; vertical-align: top; padding: .3rem .6rem; border-bottom: 1px solid var(--line) }
pre { font-size: .85rem }
.done { color: var(--good) }
.failed { color: var(--bad) }
</style>
</head>
<body>
<main>
<h1>A tour of Tarnwell</h1>
HEAD
print "<p>The ten things to try of the desk's first page, gone on its real windows with the sample company. $done of $count did\n",
    "what they say: each was looked for in the folders afterwards.</p>\n",
    "<div class=\"scroll\"><table>\n<thead><tr><th scope=\"col\">Step</th><th scope=\"col\">Done</th>",
    "<th scope=\"col\">What was filed where</th></tr></thead>\n<tbody>\n";
print "<tr><td><a href=\"#step-$_->{number}\">$_->{number}. $_->{title}</a></td>",
    "<td class=\"$_->{state}\">", $_->{state} eq 'done' ? 'yes' : 'no', "</td><td>$_->{result}</td></tr>\n"
    for @steps;
print "</tbody>\n</table></div>\n";
for my $step (@steps) {
    my $image = picture(sprintf '%s/%02d.png', $folder, $step->{number});
    my $label = $step->{state} eq 'done' ? 'What came of it' : 'Not done';
    print "<section id=\"step-$step->{number}\">\n<h2>$step->{number}. $step->{title}</h2>\n<p>$step->{what}</p>\n",
        "<p class=\"$step->{state}\"><strong>$label:</strong> $step->{result}</p>\n";
    print defined $image ? "<img alt=\"The screen at step $step->{number}: $step->{title}\" $image>\n" : "<p>There is no picture of it.</p>\n";
    print "</section>\n";
}
print "<section>\n<h2>What became of the sample mails</h2>\n<p>Each was delivered to a fresh desk and read.</p>\n",
    "<div class=\"scroll\"><pre>", escaped(content($mails_file)), "</pre></div>\n</section>\n</main>\n</body>\n</html>\n";
