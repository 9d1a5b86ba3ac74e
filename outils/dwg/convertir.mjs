// Writes the DXF of a DWG drawing: node convertir.mjs DRAWING.dwg DRAWING.dxf. A process of its own, which Kavel starts when
// it opens a .dwg; what this converter is known to get wrong is mended by Kavel on loading.
import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

const [source, target] = process.argv.slice(2);

function fail(message) {
  process.stderr.write(`${message}\n`);
  process.exit(1);
}

// The library's writer gives every layer as off, and none as frozen or locked; its reader knows better.
function withLayerStates(dxf, layers) {
  const states = new Map(layers.map((layer) => [layer.handle.toUpperCase(), layer]));
  const lines = dxf.split("\n");
  let isLayer = false, layer;
  for (let i = 0; i + 1 < lines.length; i += 2) {
    const code = lines[i].trim(), value = lines[i + 1].trim();
    if (code === "0") [isLayer, layer] = [value === "LAYER", undefined];
    else if (isLayer && code === "5") layer = states.get(value.toUpperCase());
    else if (layer && code === "62") {
      const colour = Math.abs(value > 32767 ? value - 65536 : value);
      lines[i + 1] = String(layer.off ? -colour : colour);
    } else if (layer && code === "70") {
      lines[i + 1] = String((value & ~7) | (layer.frozen && 1) | (layer.frozenInNew && 2) | (layer.locked && 4));
    }
  }
  return lines.join("\n");
}

if (!source || !target) fail("usage: node convertir.mjs DRAWING.dwg DRAWING.dxf");
let folder;
try {
  folder = dirname(createRequire(import.meta.url).resolve("@mlightcad/libredwg-web/package.json"));
} catch {
  folder = join(dirname(fileURLToPath(import.meta.url)), "node_modules", "@mlightcad", "libredwg-web");
}
const { LibreDwg } = await import(pathToFileURL(join(folder, "dist", "libredwg-web.js")).href);

const bytes = readFileSync(source);
if (!/^AC10\d\d/.test(bytes.subarray(0, 6).toString("latin1"))) fail("ce n'est pas un dessin DWG: \"AC10..\" attendu au debut");
// The library reports through the console, which would mix with our own lines.
const said = [];
for (const name of ["log", "warn", "error"]) console[name] = (...words) => said.push(words.join(" "));
try {
  const library = await LibreDwg.create(join(folder, "wasm"));
  const content = bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.byteLength);
  const drawing = library.dwg_write_dxf(content);
  const code = /error code:\s*(\d+)/.exec(said.at(-1) ?? "");
  if (!drawing || drawing.length === 0) fail(`le dessin ne peut pas etre lu${code ? ` (code ${code[1]})` : ""}`);
  const read = library.dwg_read_data(content, 0);
  const layers = read ? library.convert(read).tables.LAYER.entries : [];
  writeFileSync(target, withLayerStates(Buffer.from(drawing).toString("latin1"), layers), "latin1");
} catch (error) {
  fail(`le dessin ne peut pas etre lu (${error.message ?? error})`);
}
