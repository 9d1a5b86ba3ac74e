// Reading a drawing file into a database: one pass that finds where each record begins and how they belong together.
// Reference: DXF reference, "DXF file structure".
#pragma once
#include <string>
#include <vector>

#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {

// Throws FileError when the file can't be opened, Error with the line when it is no drawing or is damaged.
void readFile(AcDbDatabase& database, const std::string& path);
// Opens a damaged file as far as it goes. What had to be left out is told in messages, a French line each with the
// number of the file's line. When there was damage, the database is marked: save() then keeps off that file. Throws
// as readFile() does when nothing at all can be read.
void readFileRecovering(AcDbDatabase& database, const std::string& path, std::vector<std::string>& messages);
// The drawing that a new one starts from: R2018, metres, all tables, layouts and styles.
void readNewDrawing(AcDbDatabase& database);
// Whether the database began as one, saved since or not.
bool beganAsNew(const AcDbDatabase& database);
// A drawing in memory; name stands in messages. The bytes must outlive the database. With messages: as recovering.
void readBytes(AcDbDatabase& database, const std::string& name, std::string_view bytes,
               std::shared_ptr<const MappedFile> file, std::vector<std::string>* messages = nullptr);

// Makes these the way in which databases are read; called once at the start of a program.
void provideDrawingReader();

}  // namespace atelier::dxf
