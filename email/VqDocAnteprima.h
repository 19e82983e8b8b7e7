// The job that asks for a preview, a PDF, of a document.
#pragma once

#include "email/WrappingDocument.h"

namespace orvane {

/// Job file `Id`.vqa, whatever the inner kind.
class VqDocAnteprima final : public WrappingDocument {
 public:
  VqDocAnteprima();

  VqDocCodaAnteprima Coda;

 private:
  static constexpr Kind kKind{u"Anteprima", u"VqDocAnteprima", u".vqa"};
  void bindParts(const std::shared_ptr<JobFile>& file) override { bind(file, Coda); }
  void loadParts(const std::shared_ptr<JobFile>& file) override { bindAndLoad(file, Coda); }
  void renderParts(XmlWriter& xml) const override { render(xml, Coda); }
};

}  // namespace orvane
