#pragma once

#include <string>
#include <vector>

#include "platform/Authorization.h"

namespace corvane {

/// A lock view whose user answers as the test says.
class FakeAuthorization : public Authorization {
 public:
  bool grants = true;
  std::vector<std::string> order;  ///< each call with its argument, such as "setString TEST"
  AuthorizationDelegate* delegate = nullptr;

  void setRight(const std::string& right) override { order.push_back("setRight " + right); }
  void setString(const std::string& name) override { order.push_back("setString " + name); }
  void setDelegate(AuthorizationDelegate* newDelegate) override {
    order.push_back(newDelegate != nullptr ? "setDelegate" : "setDelegate none");
    delegate = newDelegate;
  }
  void updateStatus() override { order.push_back("updateStatus"); }

  bool authorize() override {
    order.push_back("authorize");
    if (!grants) return false;
    authorized_ = true;
    if (delegate != nullptr) delegate->authorizationViewDidAuthorize();
    return true;
  }

  void deauthorize() override {
    order.push_back("deauthorize");
    authorized_ = false;
    if (delegate != nullptr) delegate->authorizationViewDidDeauthorize();
  }

  bool isAuthorized() const override { return authorized_; }

 private:
  bool authorized_ = false;
};

}  // namespace corvane
