// Cairo knows nothing of optional content, but it writes structure tags: "/Div << /MCID n >> BDC ... EMC". These become
// "/OC /Ln BDC ... EMC", Ln being a layer among the page's resources, and the structure is taken away.
#include "atelier/render/sheets/pdf_layers.h"

#include <qpdf/qpdf-c.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <string_view>

#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {

namespace {

// The end of a literal string that begins here: brackets in it are balanced, or behind a backslash.
std::size_t behindString(std::string_view text, std::size_t at) {
  int depth = 0;
  for (; at < text.size(); ++at) {
    if (text[at] == '\\') ++at;
    else if (text[at] == '(') ++depth;
    else if (text[at] == ')' && --depth == 0) return at + 1;
  }
  return text.size();
}

// A page's contents with its marks replaced by references to layers; marks beyond the list stay without effect.
std::string referring(std::string_view contents, const std::vector<std::string>& references) {
  const std::string mark = std::string("/") + kLayerMark + " ";
  constexpr std::string_view kBegin = "BDC";
  std::string result;
  std::size_t next = 0;
  for (std::size_t at = 0; at < contents.size();) {
    std::size_t end = at + 1;
    if (contents.substr(at).starts_with(mark)) {
      end = std::min(contents.find(kBegin, at), contents.size() - kBegin.size()) + kBegin.size();
      result += next < references.size() ? "/OC " + references[next] + " BDC" : "/Span BMC";
      ++next;
    } else {
      if (contents[at] == '(') end = behindString(contents, at);
      result += contents.substr(at, end - at);
    }
    at = end;
  }
  return result;
}

class LayeredPdf {
 public:
  explicit LayeredPdf(const std::string& bytes) {
    qpdf_set_suppress_warnings(q(), QPDF_TRUE);
    qpdf_read_memory(q(), "pdf", bytes.data(), bytes.size(), nullptr);
    check();
  }

  std::size_t pages() const { return static_cast<std::size_t>(qpdf_get_num_pages(q())); }

  void page(std::size_t rank, const std::vector<std::string>& layers) {
    const qpdf_oh page = qpdf_get_page_n(q(), rank), properties = qpdf_oh_new_dictionary(q());
    std::vector<std::string> references;
    for (const std::string& layer : layers) {
      const auto& [name, group] = groupOf(layer);
      qpdf_oh_replace_key(q(), properties, name.c_str(), group);
      references.push_back(name);
    }
    qpdf_oh_replace_key(q(), qpdf_oh_get_key(q(), page, "/Resources"), "/Properties", properties);
    rewrite(page, references);
    qpdf_oh_remove_key(q(), page, "/StructParents");
    check();
  }

  std::string written() {
    const qpdf_oh root = qpdf_get_root(q());
    qpdf_oh_remove_key(q(), root, "/StructTreeRoot");
    qpdf_oh_remove_key(q(), root, "/MarkInfo");
    qpdf_oh_replace_key(q(), root, "/OCProperties", properties());
    qpdf_init_write_memory(q());
    qpdf_set_object_stream_mode(q(), qpdf_o_generate);
    qpdf_set_deterministic_ID(q(), QPDF_TRUE);
    qpdf_write(q());
    check();
    return {reinterpret_cast<const char*>(qpdf_get_buffer(q())), qpdf_get_buffer_length(q())};
  }

 private:
  using Group = std::pair<std::string, qpdf_oh>;  // its name among resources, and itself
  struct Close {
    void operator()(_qpdf_data* data) const { qpdf_cleanup(&data); }
  };

  qpdf_data q() const { return data_.get(); }

  void check() const {
    if (qpdf_has_error(q()))
      throw PlotError(std::string("calques du PDF : ") + qpdf_get_error_full_text(q(), qpdf_get_error(q())));
  }

  void rewrite(qpdf_oh page, const std::vector<std::string>& references) {
    unsigned char* bytes = nullptr;
    std::size_t size = 0;
    qpdf_oh_get_page_content_data(q(), page, &bytes, &size);
    const std::unique_ptr<unsigned char, decltype(&std::free)> held(bytes, std::free);
    check();
    const std::string contents = referring({reinterpret_cast<const char*>(bytes), size}, references);
    const qpdf_oh stream = qpdf_oh_new_stream(q());
    qpdf_oh_replace_stream_data(q(), stream, reinterpret_cast<const unsigned char*>(contents.data()), contents.size(),
                                qpdf_oh_new_null(q()), qpdf_oh_new_null(q()));
    qpdf_oh_replace_key(q(), page, "/Contents", stream);
  }

  const Group& groupOf(const std::string& layer) {
    const auto known = groups_.find(layer);
    if (known != groups_.end()) return known->second;
    const qpdf_oh group = qpdf_oh_new_dictionary(q());
    qpdf_oh_replace_key(q(), group, "/Type", qpdf_oh_new_name(q(), "/OCG"));
    qpdf_oh_replace_key(q(), group, "/Name", qpdf_oh_new_unicode_string(q(), layer.c_str()));
    const std::string name = "/L" + std::to_string(groups_.size());
    return groups_.try_emplace(layer, name, qpdf_make_indirect_object(q(), group)).first->second;
  }

  qpdf_oh properties() {
    const qpdf_oh all = qpdf_oh_new_array(q()), shown = qpdf_oh_new_dictionary(q()),
                  properties = qpdf_oh_new_dictionary(q());
    for (const auto& [layer, group] : groups_) qpdf_oh_append_item(q(), all, group.second);
    qpdf_oh_replace_key(q(), shown, "/Name", qpdf_oh_new_unicode_string(q(), "Calques"));
    qpdf_oh_replace_key(q(), shown, "/ON", all);
    qpdf_oh_replace_key(q(), shown, "/Order", all);
    qpdf_oh_replace_key(q(), properties, "/OCGs", all);
    qpdf_oh_replace_key(q(), properties, "/D", shown);
    return properties;
  }

  std::unique_ptr<_qpdf_data, Close> data_{qpdf_init()};
  std::map<std::string, Group> groups_;  // by layer
};

}  // namespace

std::string withLayers(const std::string& pdf, const std::vector<std::vector<std::string>>& layers) {
  if (std::ranges::all_of(layers, [](const auto& page) { return page.empty(); })) return pdf;
  LayeredPdf layered(pdf);
  for (std::size_t i = 0; i < layered.pages() && i < layers.size(); ++i) layered.page(i, layers[i]);
  return layered.written();
}

}  // namespace atelier::render
