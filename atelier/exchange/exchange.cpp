// Adds the room's AutoLISP functions to every drawing, and its converter for drawings that aren't DXF.
#include "atelier/exchange/exchange.h"

#include "atelier/document/opening.h"
#include "atelier/document/services.h"
#include "atelier/exchange/dwg.h"

namespace atelier::exchange {

void provideExchange() {
  addDrawingBuiltins(landXmlBuiltins());
  addDrawingBuiltins(textBuiltins());
  setDrawingConverter(convertDrawing);
}

}  // namespace atelier::exchange
