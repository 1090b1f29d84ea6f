#pragma once

#include "link/link_settings.h"
#include "platform/link_component.h"
#include "platform/settings_store.h"

namespace sched {

// The link component that "Data Link Settings" chose, asked at each use.
class ChosenLinkComponent : public LinkComponent {
 public:
  ChosenLinkComponent(SettingsStore& settings, LinkComponent& file, LinkComponent& server)
      : settings_(settings), file_(file), server_(server) {}

  bool ExportFile(const std::string& path) override { return Chosen().ExportFile(path); }
  bool ImportFile(const std::string& path) override { return Chosen().ImportFile(path); }

 private:
  LinkComponent& Chosen() { return ReadLinkKind(settings_) == LinkKind::kServer ? server_ : file_; }
  SettingsStore& settings_;
  LinkComponent& file_;
  LinkComponent& server_;
};

}  // namespace sched
