"""The columns of a sheet of quantities, found by their header row, for the programs that read workbooks back.

A table begins where a header stands and ends at the first cell without one, so the tables of fixed elements stay apart.
"""
HEADERS = 5  # the row
FIRST = HEADERS + 1


def columns(sheet, row=HEADERS, first="Debut"):
    """Title -> letter, of the table that begins with the header `first`."""
    cells = list(sheet[row])
    start = next(i for i, cell in enumerate(cells) if cell.value == first)
    found = {}
    for cell in cells[start:]:
        if cell.value is None:
            break
        found[cell.value] = cell.column_letter
    return found


def rows(sheet, *titles):
    """The values under these titles, a tuple for each section."""
    letters = columns(sheet)
    everything = [tuple(sheet[f"{letters[t]}{r}"].value for t in titles) for r in range(FIRST, sheet.max_row + 1)]
    return [values for values in everything if values[0] is not None]
