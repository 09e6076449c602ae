#include "diagnosis/Diagnosis.h"

#include <algorithm>

#include "diagnosis/PortPath.h"

namespace corvane {

namespace {

Verdict verdictOf(Severity severity) {
  return static_cast<Verdict>(static_cast<int>(severity));
}

PortName nameOfPlace(const Look& look, const Place& place) {
  if (place.isListed) {
    const AdapterReading& adapter = look.reading().adapters.at(place.adapter);
    return {adapter.label, adapter.WWN, place.port};
  }
  const UnlistedAdapter& adapter = look.reading().unlisted.at(place.adapter);
  return {adapter.label, adapter.nodeWWN, place.port};
}

bool concernsOneAdapter(const Draft& draft) {
  if (draft.isOfComputer || draft.concerns.empty()) return false;
  const Place& first = draft.concerns.front();
  return std::all_of(draft.concerns.begin(), draft.concerns.end(), [&first](const Place& each) {
    return each.isListed == first.isListed && each.adapter == first.adapter;
  });
}

Finding findingOf(const Look& look, const Draft& draft) {
  Finding finding;
  finding.code = draft.rule->code;
  finding.name = draft.rule->name;
  finding.severity = draft.severity;
  finding.where = draft.rule->segment;
  finding.text = draft.words.text;
  finding.remedy = draft.words.remedy;
  for (const Place& place : draft.concerns) finding.concerns.push_back(nameOfPlace(look, place));
  if (!concernsOneAdapter(draft)) return finding;
  finding.label = finding.concerns.front().label;
  if (draft.concerns.size() == 1 && draft.concerns.front().port != 0)
    finding.port = draft.concerns.front().port;
  return finding;
}

PortDiagnosis diagnosePort(const Look& look, const PortFacts& port, const Drafts& told) {
  PortDiagnosis diagnosis;
  diagnosis.port = port.number();
  for (const Draft& draft : told)
    if (draft.concernsPlace(placeOf(port)))
      diagnosis.verdict = std::min(diagnosis.verdict, verdictOf(draft.severity));
  diagnosis.path = pathOf(look, port, told);
  return diagnosis;
}

AdapterDiagnosis diagnoseAdapter(const Look& look, size_t index, const Drafts& told) {
  const AdapterReading& adapter = look.reading().adapters.at(index);
  AdapterDiagnosis diagnosis{adapter.label, adapter.WWN, adapter.product, Verdict::Good, {}};
  for (size_t place = 0; place < diagnosis.ports.size(); ++place) {
    const auto number = static_cast<int64_t>(place) + 1;
    diagnosis.ports.at(place) = diagnosePort(look, look.port(index, number), told);
    diagnosis.verdict = std::min(diagnosis.verdict, diagnosis.ports.at(place).verdict);
  }
  return diagnosis;
}

}  // namespace

Diagnosis diagnose(const ComputerReading& reading, const Memory& memory) {
  const Look look(reading, memory);
  Drafts drafts = findAll(look);
  silence(look, drafts);
  addDifferences(look, drafts);
  merge(look, drafts);
  sortByWeight(look, drafts);

  Diagnosis diagnosis;
  for (const Draft& draft : drafts) {
    diagnosis.findings.push_back(findingOf(look, draft));
    diagnosis.verdict = std::min(diagnosis.verdict, verdictOf(draft.severity));
  }
  for (size_t index = 0; index < reading.adapters.size(); ++index)
    diagnosis.adapters.push_back(diagnoseAdapter(look, index, drafts));
  return diagnosis;
}

}  // namespace corvane
