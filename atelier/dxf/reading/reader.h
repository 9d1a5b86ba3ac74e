// Reads a drawing file into a database: one pass finds where each record begins and how they belong together.
// Reference: DXF reference, "DXF file structure".
#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {

// Throws FileError when the file can't be opened, Error with the line when it isn't a drawing or is damaged.
void readFile(AcDbDatabase& database, const std::string& path);
// Opens what can be read of a damaged file. The messages say what was left out, each a French line with the number of
// the file's line. A database from a damaged file is marked: save() then refuses to replace that file. Throws as
// readFile() does when nothing can be read.
void readFileRecovering(AcDbDatabase& database, const std::string& path, std::vector<std::string>& messages);
// The drawing that a new one starts from: R2018, metres, all tables, layouts and styles.
void readNewDrawing(AcDbDatabase& database);
// Its text: new_drawing.dxf, built into the program.
std::string_view newDrawingText();
// Whether the database began as a new drawing, saved since or not.
bool beganAsNew(const AcDbDatabase& database);
// Reads a drawing in memory; `name` is used in messages. The bytes must outlive the database. With messages: recovers.
void readBytes(AcDbDatabase& database, const std::string& name, std::string_view bytes,
               std::shared_ptr<const MappedFile> file, std::vector<std::string>* messages = nullptr);

// Makes the functions above the database's reader; called once at the start of a program.
void provideDrawingReader();

}  // namespace atelier::dxf
