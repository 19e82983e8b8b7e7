// A part of a document that owns one section of the job file and one element of the XML.
#pragma once

#include "core/Fields.h"

namespace orvane {

/// Components are members of their document and live as long as it; they are used on the thread that made the
/// document. The three operations below are for the owner alone, which reaches them through `Owner`.
class Component : public Fields {
 public:
  /// The section of the job file that this component keeps; empty for one that keeps nothing under a name of
  /// its own.
  TextView jobSection() const { return section(); }

 protected:
  /// `section` and `element` must outlive the component.
  Component(Name section, TextView element) : Fields(section), element_(element) {}

  std::shared_ptr<JobFile> jobFile() const override { return file_; }
  TextView element() const { return element_; }

  /// Remember the job file; nothing is read or written.
  virtual void ImpostaFile(const std::shared_ptr<JobFile>& file) { file_ = file; }

  /// Read the values back from the job file, without writing.
  virtual void LeggiFile() { loadFields(*file_); }

  /// Write the component's element.
  virtual void NodoXml(XmlWriter& xml) const;

  /// The component's own properties, in their order of declaration unless it says otherwise.
  virtual void renderValues(XmlWriter& xml) const { renderFields(xml); }

  /// What stands in the element after them.
  virtual void renderParts(XmlWriter&) const {}

 private:
  friend class Owner;
  TextView element_;
  std::shared_ptr<JobFile> file_ = ProfileAccess::noFile();
};

/// What has components: lists them once for each operation, in the order of the calls.
class Owner {
 protected:
  template <class... Components>
  static void bind(const std::shared_ptr<JobFile>& file, Components&... components) {
    (base(components).ImpostaFile(file), ...);
  }
  template <class... Components>
  static void load(Components&... components) {
    (base(components).LeggiFile(), ...);
  }
  template <class... Components>
  static void bindAndLoad(const std::shared_ptr<JobFile>& file, Components&... components) {
    ((bind(file, components), load(components)), ...);
  }
  template <class... Components>
  static void render(XmlWriter& xml, const Components&... components) {
    (base(components).NodoXml(xml), ...);
  }
  /// A file reference under the name that its owner gives it.
  template <class File>
  static void renderFile(XmlWriter& xml, TextView name, const File& file) {
    file.NodoXml(xml, name);
  }

 private:
  static Component& base(Component& component) { return component; }
  static const Component& base(const Component& component) { return component; }
};

}  // namespace orvane
