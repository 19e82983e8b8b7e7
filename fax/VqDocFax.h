// The fax job.
#pragma once

#include "email/VqDocAllegati.h"
#include "fax/TransmittedFax.h"
#include "pages/VqDocLayoutPagina.h"

namespace orvane {

/// Job file `Id`.vqf, or `Id`.ldf for one that is linked.
class VqDocFax : public TransmittedFax {
 public:
  VqDocFax();
  ~VqDocFax() override;

  VqDocCodaFax Coda;
  VqDocLayoutPagina LayoutPagina;
  VqDocFile FileTif;  ///< the image of the fax; in the XML only
  VqDocAllegati Allegati;

 protected:
  void bindComponents(const std::shared_ptr<JobFile>& file) override;
  void loadComponents(const std::shared_ptr<JobFile>& file) override;
  void renderComponents(XmlWriter& xml) const override;
};

}  // namespace orvane
