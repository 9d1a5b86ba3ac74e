// What a new drawing shows when it is opened the next time: all that is in it.
#pragma once

namespace atelier {

class Document;

// Sets the extents of the header and the view of the active viewport of a drawing that began as a new one; any other
// keeps what its file says.
void setFirstView(Document& document);

}  // namespace atelier
