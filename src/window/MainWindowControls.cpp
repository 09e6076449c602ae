#include "window/MainWindowControls.h"

namespace corvane {

MainWindowControls::MainWindowControls(const Dispatch& dispatch)
    : deviceTable(dispatch, "deviceTable"),
      tabView(dispatch, "tabView"),
      port1Button(dispatch, "port1Button"),
      port2Button(dispatch, "port2Button"),
      deviceButton(dispatch, "deviceButton"),
      refreshButton(dispatch, "refreshButton"),
      fuckMenu(dispatch, "fuckMenu"),
      checkUpdate(dispatch, "checkUpdate"),
      updateFW(dispatch, "updateFW"),
      downloadLogs(dispatch, "downloadLogs"),
      authView(dispatch, "authView"),
      logProgress(dispatch, "logProgress"),
      drvVer_8G(dispatch, "drvVer_8G"),
      fwVer(dispatch, "fwVer"),
      deviceWWN(dispatch, "deviceWWN"),
      productType(dispatch, "productType"),
      setQueueDepth(dispatch, "setQueueDepth"),
      queueDepthButton(dispatch, "queueDepthButton"),
      WWNN(dispatch, "WWNN"),
      currentSpeed(dispatch, "currentSpeed"),
      currentTopology(dispatch, "currentTopology"),
      setSpeed(dispatch, "setSpeed"),
      setTopology(dispatch, "setTopology"),
      hardALPA(dispatch, "hardALPA"),
      chooseALPA(dispatch, "chooseALPA"),
      SFPInfoButton(dispatch, "SFPInfoButton"),
      SFPErrorMessage(dispatch, "SFPErrorMessage"),
      SFPHelpButton(dispatch, "SFPHelpButton"),
      portProgress(dispatch, "portProgress"),
      drvVer_10GE(dispatch, "drvVer_10GE"),
      productType10G(dispatch, "productType10G"),
      macAddress(dispatch, "macAddress"),
      enName(dispatch, "enName"),
      enStatus(dispatch, "enStatus"),
      MTUvalue(dispatch, "MTUvalue"),
      SFPTypeLabel(dispatch, "SFPTypeLabel"),
      SFPInfoContent(dispatch, "SFPInfoContent"),
      SFPInfoModule(dispatch, "SFPInfoModule"),
      SFPerrrorMessage10G(dispatch, "SFPerrrorMessage10G"),
      settingMode(dispatch, "settingMode"),
      enableTCPipv4(dispatch, "enableTCPipv4"),
      enableRSC(dispatch, "enableRSC"),
      modeProgress(dispatch, "modeProgress") {}

void MainWindowControls::clearPages() {
  for (TextField* field :
       {&drvVer_8G, &fwVer, &deviceWWN, &productType, &WWNN, &currentSpeed, &currentTopology,
        &hardALPA, &SFPErrorMessage, &drvVer_10GE, &productType10G, &macAddress, &enName, &enStatus,
        &MTUvalue, &SFPInfoModule, &SFPerrrorMessage10G})
    field->setText("");
}

}  // namespace corvane
