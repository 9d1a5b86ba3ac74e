// Writes the DXF of a DWG drawing: node convertir.mjs DRAWING.dwg DRAWING.dxf. A process of its own, which Kavel starts when
// it opens a .dwg; what this converter is known to get wrong is mended by Kavel on loading.
import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join } from "node:path";
import { pathToFileURL } from "node:url";

const [source, target] = process.argv.slice(2);

function fail(message) {
  process.stderr.write(`${message}\n`);
  process.exit(1);
}

if (!source || !target) fail("usage: node convertir.mjs DRAWING.dwg DRAWING.dxf");
let folder;
try {
  folder = dirname(createRequire(import.meta.url).resolve("@mlightcad/libredwg-web/package.json"));
} catch {
  folder = join(import.meta.dirname, "node_modules", "@mlightcad", "libredwg-web");
}
const { LibreDwg } = await import(pathToFileURL(join(folder, "dist", "libredwg-web.js")).href);

const bytes = readFileSync(source);
if (!/^AC10\d\d/.test(bytes.subarray(0, 6).toString("latin1"))) fail("ce n'est pas un dessin DWG: \"AC10..\" attendu au debut");
// The library reports through the console, which would mix with our own lines.
const said = [];
for (const name of ["log", "warn", "error"]) console[name] = (...words) => said.push(words.join(" "));
try {
  const library = await LibreDwg.create(join(folder, "wasm"));
  const drawing = library.dwg_write_dxf(bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.byteLength));
  if (!drawing || drawing.length === 0) fail(said.at(-1) ?? "le dessin ne peut pas etre lu");
  writeFileSync(target, drawing);
} catch (error) {
  fail(`le dessin ne peut pas etre lu (${error.message ?? error})`);
}
