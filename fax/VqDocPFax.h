// The printer-fax job.
#pragma once

#include "fax/TransmittedFax.h"

namespace orvane {

/// Job file `Id`.vqpf, or `Id`.ldf for one that is linked, as a linked fax has. The documents linked to it
/// are faxes.
class VqDocPFax : public TransmittedFax {
 public:
  VqDocPFax();
  ~VqDocPFax() override;

  VqDocCodaPFax Coda;

 protected:
  void bindComponents(const std::shared_ptr<JobFile>& file) override;
  void loadComponents(const std::shared_ptr<JobFile>& file) override;
  void renderComponents(XmlWriter& xml) const override;
};

}  // namespace orvane
