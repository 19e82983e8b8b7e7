// The full fax: what the member table says can be set is set.
#include <algorithm>
#include <iterator>

#include "bench/Bench.h"
#include "typelib/Members.h"
#include "typelib/classes.h"

namespace orvane::bench {

namespace {

constexpr std::int32_t kFirstQueueStates = 13;  // with each date that a fax can be stamped with

// What is kept in the object only would not come back on loading; where the document lies is not for the
// filling to change; linked documents have files of their own.
bool isLeftAlone(TextView member) {
  constexpr TextView kNames[] = {u"FileIntestazione", u"FileCorpo", u"FileScript",       u"FileTif",
                                 u"Bloccato",         u"Collegati", u"ProssimoTentativo"};
  return std::find(std::begin(kNames), std::end(kNames), member) != std::end(kNames);
}

Variant sample(const MemberInfo& member) {
  switch (member.parameters.back().type.kind) {
    case TypeKind::String:
      return u"Valore di " + Text(member.name);
    case TypeKind::Boolean:
      return true;
    case TypeKind::Date:
      return Date{45678.515625};
    case TypeKind::Byte:
      return std::uint8_t{27};
    case TypeKind::Enum:
      return member.parameters.back().type.enumeration->members.front().value;
    default:
      return std::int32_t{12};
  }
}

// Lines and bytes are set one by one, up to the first index that there is not.
void assignEach(const ObjectRef& object, const MemberInfo& member) {
  try {
    for (std::int32_t index = 0; index < 100; ++index) {
      const Variant arguments[] = {index, sample(member)};
      let(object, member.name, arguments);
    }
  } catch (const Error&) {
  }
}

void fill(const ObjectRef& object) {
  for (const MemberInfo& member : object.type->members) {
    if (isLeftAlone(member.name)) continue;
    if (member.kind == MemberKind::Let) {
      member.parameters.size() == 1 ? let(object, member.name, sample(member)) : assignEach(object, member);
    } else if (member.kind == MemberKind::Get && member.parameters.empty() &&
               member.result.kind == TypeKind::Class) {
      fill(std::get<ObjectRef>(get(object, member.name)));
    }
  }
}

}  // namespace

std::shared_ptr<VqDocFax> fullFax(const VqDocumenti& factory, const Text& folder, const Text& id,
                                  int attachments) {
  auto fax = factory.NuovoDocumentoFax();
  fax->Inizializza(id, folder);
  fill({fax, &classOf<VqDocFax>()});
  fax->Dimensione.Codice = vdd_A4;
  for (std::int32_t state = 0; state < kFirstQueueStates; ++state) fax->Coda.Codice = state;
  fax->Coda.Codice = vdcf_DaTrasmettere;
  for (int i = 0; i < attachments; ++i)
    fax->Allegati.Add(folder, u"allegato" + fromUtf8(std::to_string(i)) + u".pdf");
  fax->Allegati.Salva();
  return fax;
}

}  // namespace orvane::bench
