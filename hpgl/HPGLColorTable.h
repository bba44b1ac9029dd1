#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

// The colour table of a pen plotter: a file that maps colours to pens, one record per line (red,
// green and blue 0 to 255, one separator character, the pen). It is opened at job start and
// kept open for the whole job; its records with colours in 0 to 255 and pens 1 to 31 are read
// once, then looked up for every colour the job selects.
class HPGLColorTable {
  public:
    // Opens the file and reads its records; false when it cannot be opened.
    bool Open(const std::string& path);
    void Close();
    bool IsOpen() const { return reader.is_open(); }

    // Appends, in file order, the pens (1 to 31) the table gives for the colour. A colour
    // outside 0 to 255 is looked up in the file itself, read again from its start.
    void PensFor(int red, int green, int blue, std::vector<int>& pens);

    // The records as read, each packed as (red << 16 | green << 8 | blue) << 5 | pen and sorted
    // by colour, file order kept among equal colours.
    const std::vector<std::uint32_t>& Records() const { return records; }

  private:
    std::ifstream reader;
    std::vector<std::uint32_t> records;
};
