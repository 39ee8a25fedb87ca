# Opens a workbook with a second reader that is not this project's (Spreadsheet::ParseXLSX) and compares every cell with
# text tables.
#   same_as_tables.pl WORKBOOK SHEET=TABLE...    a table is a file with tabs; the first sheets must hold the same
# A cell is the same when its text is, or, where the workbook has a number, its value, or the day that it is. Says what
# differs, and fails when anything does.
use strict;
use warnings;
use utf8;
use Spreadsheet::ParseXLSX;
use Spreadsheet::ParseExcel::Utility qw(ExcelFmt);

binmode STDOUT, ":encoding(UTF-8)";
my ($name, @pairs) = @ARGV;
my $workbook = Spreadsheet::ParseXLSX->new->parse($name) or die "$name: cannot be read\n";
my @sheets = $workbook->worksheets;
my (@faults, $cells);

# The cells of a line with tabs, of which some stand in quotation marks.
sub fields_of {
  my ($line) = @_;
  my @fields = split /\t/, $line, -1;
  for (@fields) {
    s/""/"/g if s/\A"(.*)"\z/$1/s;
  }
  return @fields;
}

sub fault_of {
  my ($column, $written, $cell) = @_;
  my $read = defined $cell ? $cell->unformatted : undef;
  $read = "" unless defined $read;
  ++$cells;
  return if $read eq $written;
  my $is_number = defined $cell && $cell->type ne "Text" && $read =~ /\A-?\d+(?:\.\d+)?(?:[eE][-+]?\d+)?\z/;
  return "is '$read' instead of '$written'" unless $is_number;
  return if $column eq "birthdate" && ExcelFmt("yyyy-mm-dd", $read) eq $written;
  return if $written =~ /\A-?\d/ && $written == $read;
  return "is $read instead of '$written'";
}

for my $k (0 .. $#pairs) {
  my ($title, $table) = split /=/, $pairs[$k], 2;
  my $sheet = $sheets[$k];
  if (!defined $sheet || $sheet->get_name ne $title) {
    push @faults, "sheet " . ($k + 1) . " is not $title";
    next;
  }
  open my $file, "<:encoding(UTF-8)", $table or die "$table: $!\n";
  my ($row, @headings) = (0);
  while (my $line = <$file>) {
    chomp $line;
    my @written = fields_of($line);
    @headings = @written if $row == 0;
    for my $column (0 .. $#written) {
      my $fault = fault_of($row == 0 ? "" : $headings[$column], $written[$column], $sheet->get_cell($row, $column));
      push @faults, "$title: row " . ($row + 1) . ", $headings[$column]: $fault" if defined $fault;
    }
    push @faults, "$title: row " . ($row + 1) . " has more cells" if defined $sheet->get_cell($row, scalar @written);
    ++$row;
  }
  my (undef, $last) = $sheet->row_range;
  push @faults, "$title: " . ($last + 1) . " rows instead of $row" if $last + 1 != $row;
}
push @faults, "no cell was compared" unless $cells;
my $shown = @faults > 20 ? 19 : $#faults;
print "$name: $_\n" for @faults[0 .. $shown];
exit(@faults ? 1 : 0);
