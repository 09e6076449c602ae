<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>AboutDialog</name>
    <message>
        <source>About CORVANE Utility</source>
        <translation>Über CORVANE Utility</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Copyright</source>
        <translation>Copyright</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>AlertSheet</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Manages Velmar&apos;s Thunderbolt Fibre Channel and 10 Gigabit Ethernet adapters.</source>
        <translation>Verwaltet die Thunderbolt-Adapter von Velmar für Fibre Channel und 10-Gigabit-Ethernet.</translation>
    </message>
    <message>
        <source>Unexpected argument &apos;%1&apos;.</source>
        <translation>Unerwartetes Argument „%1“.</translation>
    </message>
    <message>
        <source>Run on the simulated computer in FILE.</source>
        <translation>Auf dem simulierten Computer in FILE laufen.</translation>
    </message>
    <message>
        <source>Show the computer in a registry dump or a folder of logs, read-only.</source>
        <translation>Den Computer eines Registry-Auszugs oder Protokollordners zeigen, schreibgeschützt.</translation>
    </message>
    <message>
        <source>Append what crosses the platform boundary to FILE.</source>
        <translation>An FILE anhängen, was die Plattformgrenze überschreitet.</translation>
    </message>
</context>
<context>
    <name>Controllers</name>
    <message>
        <source>Click the lock to make changes.</source>
        <translation>Zum Bearbeiten auf das Schloss klicken.</translation>
    </message>
    <message>
        <source>The installed driver is too old for this setting.</source>
        <translation>Der installierte Treiber ist für diese Einstellung zu alt.</translation>
    </message>
    <message>
        <source>A registry dump cannot be changed.</source>
        <translation>Ein Registry-Auszug lässt sich nicht ändern.</translation>
    </message>
    <message>
        <source>not in the dump</source>
        <translation>nicht im Auszug</translation>
    </message>
    <message>
        <source>Making the folder…</source>
        <translation>Ordner wird angelegt …</translation>
    </message>
    <message>
        <source>Collecting the unified log…</source>
        <translation>Systemweites Protokoll wird gesammelt …</translation>
    </message>
    <message>
        <source>Copying the system log…</source>
        <translation>Systemprotokoll wird kopiert …</translation>
    </message>
    <message>
        <source>Reading the device registry…</source>
        <translation>Geräte-Registry wird gelesen …</translation>
    </message>
    <message>
        <source>Profiling the system…</source>
        <translation>Systemprofil wird erstellt …</translation>
    </message>
    <message>
        <source>Showing the folder…</source>
        <translation>Ordner wird gezeigt …</translation>
    </message>
    <message>
        <source>Please select a Fibre Channel adapter first.</source>
        <translation>Bitte wählen Sie zuerst einen Fibre-Channel-Adapter.</translation>
    </message>
    <message>
        <source>Tick what is to be installed.</source>
        <translation>Kreuzen Sie an, was installiert werden soll.</translation>
    </message>
    <message>
        <source>Wait until the firmware update from a file has ended.</source>
        <translation>Warten Sie, bis die Firmwareaktualisierung aus einer Datei beendet ist.</translation>
    </message>
    <message>
        <source>The SFP button describes the transceiver module in this port. It cannot be used while the cage is empty, while the module does not suit the adapter, or with a driver too old to read modules.

Use modules made for Fibre Channel: 4 and 8 Gb/s for 8G adapters, 4, 8 and 16 Gb/s for 16G adapters. Modules for Ethernet and for 1, 2 or 10 Gb/s do not suit.

Short wave modules need multimode fibre, long wave modules single-mode fibre, and both ends of a cable need the same kind. If there is no link, clean the connectors and choose the speed and topology of the other side, or Automatic.</source>
        <translation>Die SFP-Schaltfläche beschreibt das Transceivermodul in diesem Anschluss. Sie ist nicht verfügbar, solange der Einschub leer ist, das Modul nicht zum Adapter passt oder der Treiber zu alt ist, um Module zu lesen.

Verwenden Sie Module für Fibre Channel: 4 und 8 Gb/s für 8G-Adapter, 4, 8 und 16 Gb/s für 16G-Adapter. Module für Ethernet und für 1, 2 oder 10 Gb/s passen nicht.

Kurzwellenmodule brauchen Multimodefaser, Langwellenmodule Monomodefaser, und beide Enden eines Kabels brauchen dieselbe Art. Gibt es keine Verbindung, reinigen Sie die Stecker und wählen Sie Geschwindigkeit und Topologie der Gegenseite oder Automatic.</translation>
    </message>
    <message>
        <source>Name either a bench to run on or a dump to look at.</source>
        <translation>Nennen Sie entweder einen Prüfstand oder einen Auszug.</translation>
    </message>
    <message>
        <source>Name a file in a folder that can be written.</source>
        <translation>Nennen Sie eine Datei in einem beschreibbaren Ordner.</translation>
    </message>
    <message>
        <source>Correct the file at that place; it has not been changed.</source>
        <translation>Berichtigen Sie die Datei an dieser Stelle; sie wurde nicht verändert.</translation>
    </message>
    <message>
        <source>Check that the file and its folder can be read and written.</source>
        <translation>Prüfen Sie, ob die Datei und ihr Ordner lesbar und beschreibbar sind.</translation>
    </message>
    <message>
        <source>Name a registry dump or a folder of collected logs.</source>
        <translation>Nennen Sie einen Registry-Auszug oder einen Ordner mit gesammelten Protokollen.</translation>
    </message>
    <message>
        <source>Name a bench with --bench FILE.</source>
        <translation>Nennen Sie einen Prüfstand mit --bench FILE.</translation>
    </message>
    <message>
        <source>Make the folder writable, or name a bench with --bench FILE.</source>
        <translation>Machen Sie den Ordner beschreibbar oder nennen Sie einen Prüfstand mit --bench FILE.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>The adapter has gone. Nothing was updated.</source>
        <translation>Der Adapter ist nicht mehr da. Nichts wurde aktualisiert.</translation>
    </message>
    <message>
        <source>Nothing was updated. Open the lock, or wait until the other update has ended.</source>
        <translation>Nichts wurde aktualisiert. Öffnen Sie das Schloss oder warten Sie, bis die andere Aktualisierung beendet ist.</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>the transfer failed</source>
        <translation>die Übertragung ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>the transfer library could not be initialised</source>
        <translation>die Übertragungsbibliothek konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>the catalogue names no file</source>
        <translation>der Katalog nennt keine Datei</translation>
    </message>
    <message>
        <source>the catalogue&apos;s file name is too long</source>
        <translation>der Dateiname im Katalog ist zu lang</translation>
    </message>
    <message>
        <source>the catalogue&apos;s file name begins with &quot;-&quot;</source>
        <translation>der Dateiname im Katalog beginnt mit „-“</translation>
    </message>
    <message>
        <source>the catalogue&apos;s file name would leave its folder</source>
        <translation>der Dateiname im Katalog führt aus seinem Ordner hinaus</translation>
    </message>
    <message>
        <source>the catalogue&apos;s file name has characters other than letters, digits, &quot;.&quot;, &quot;_&quot;, &quot;-&quot; and &quot;+&quot;</source>
        <translation>der Dateiname im Katalog enthält andere Zeichen als Buchstaben, Ziffern, „.“, „_“, „-“ und „+“</translation>
    </message>
    <message>
        <source>the catalogue&apos;s file name is kept for a file of the utility&apos;s own</source>
        <translation>der Dateiname im Katalog ist einer eigenen Datei des Programms vorbehalten</translation>
    </message>
    <message>
        <source>none of its ports is in the dump, so its driver did not run</source>
        <translation>keiner seiner Anschlüsse steht im Auszug, sein Treiber lief also nicht</translation>
    </message>
    <message>
        <source>its ports are not whole in the dump; ask the customer for a whole one</source>
        <translation>seine Anschlüsse stehen nicht vollständig im Auszug; bitten Sie den Kunden um einen vollständigen</translation>
    </message>
    <message>
        <source>It holds no entry of a device registry.</source>
        <translation>Die Datei enthält keinen Eintrag einer Geräte-Registry.</translation>
    </message>
    <message>
        <source>It is a property list in binary form; &quot;plutil -convert xml1&quot; makes it readable.</source>
        <translation>Die Datei ist eine Property-Liste in Binärform; „plutil -convert xml1“ macht sie lesbar.</translation>
    </message>
    <message>
        <source>It is a property list that is not well formed.</source>
        <translation>Die Datei ist eine fehlerhafte Property-Liste.</translation>
    </message>
    <message>
        <source>It is a property list, but of no device registry.</source>
        <translation>Die Datei ist eine Property-Liste, aber nicht die einer Geräte-Registry.</translation>
    </message>
    <message>
        <source>It is larger than 4 GB.</source>
        <translation>Die Datei ist größer als 4 GB.</translation>
    </message>
    <message>
        <source>It cannot be read.</source>
        <translation>Die Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>There is no such file.</source>
        <translation>Es gibt keine solche Datei.</translation>
    </message>
    <message>
        <source>there is no such file or folder</source>
        <translation>es gibt weder eine solche Datei noch einen solchen Ordner</translation>
    </message>
    <message>
        <source>there is no such bench</source>
        <translation>es gibt keinen solchen Prüfstand</translation>
    </message>
    <message>
        <source>cannot stand beside --dump</source>
        <translation>kann nicht neben --dump stehen</translation>
    </message>
    <message>
        <source>neither XDG_DATA_HOME nor HOME names a folder</source>
        <translation>weder XDG_DATA_HOME noch HOME nennt einen Ordner</translation>
    </message>
    <message>
        <source>Downloading %1</source>
        <translation>Wird heruntergeladen: %1</translation>
    </message>
    <message>
        <source>Not downloaded: %1</source>
        <translation>Nicht heruntergeladen: %1</translation>
    </message>
    <message>
        <source>%1 at %2: attached, but not listed: %3</source>
        <translation>%1 an %2: angeschlossen, aber nicht aufgeführt: %3</translation>
    </message>
    <message>
        <source>%1 line is cut (&quot;ioreg -l -w0&quot; cuts none)</source>
        <translation>%1 Zeile ist abgeschnitten („ioreg -l -w0“ schneidet keine ab)</translation>
    </message>
    <message>
        <source>%1 lines are cut (&quot;ioreg -l -w0&quot; cuts none)</source>
        <translation>%1 Zeilen sind abgeschnitten („ioreg -l -w0“ schneidet keine ab)</translation>
    </message>
    <message>
        <source>%1 line cannot be read</source>
        <translation>%1 Zeile ist nicht lesbar</translation>
    </message>
    <message>
        <source>%1 lines cannot be read</source>
        <translation>%1 Zeilen sind nicht lesbar</translation>
    </message>
    <message>
        <source>%1 value cannot be read</source>
        <translation>%1 Wert ist nicht lesbar</translation>
    </message>
    <message>
        <source>%1 values cannot be read</source>
        <translation>%1 Werte sind nicht lesbar</translation>
    </message>
    <message>
        <source>%1 value is redacted</source>
        <translation>%1 Wert ist geschwärzt</translation>
    </message>
    <message>
        <source>%1 values are redacted</source>
        <translation>%1 Werte sind geschwärzt</translation>
    </message>
    <message>
        <source>The folder holds no %1.</source>
        <translation>Der Ordner enthält keine Datei %1.</translation>
    </message>
    <message>
        <source>The folder holds %1 collections; open one of them.</source>
        <translation>Der Ordner enthält %1 Sammlungen; öffnen Sie eine davon.</translation>
    </message>
    <message>
        <source>the journal cannot be opened: %1</source>
        <translation>das Journal kann nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>Write one with &quot;corvane-bench new %1&quot;.</source>
        <translation>Schreiben Sie einen mit „corvane-bench new %1“.</translation>
    </message>
    <message>
        <source>the user&apos;s own bench</source>
        <translation>der eigene Prüfstand</translation>
    </message>
    <message>
        <source>%1 is used by %2.</source>
        <translation>%1 wird von %2 benutzt.</translation>
    </message>
    <message>
        <source>Unplug one of them at once; a switch or loop will throw out one of the two; have the address put right by the maker.</source>
        <translation>Trennen Sie sofort einen davon; ein Switch oder Loop wirft einen der beiden hinaus; lassen Sie die Adresse vom Hersteller berichtigen.</translation>
    </message>
    <message>
        <source>%1 adapters are called %2; a command cannot tell them apart by it.</source>
        <translation>%1 Adapter heißen %2; ein Befehl kann sie daran nicht unterscheiden.</translation>
    </message>
    <message>
        <source>Name them by %1; or move one to another Thunderbolt port.</source>
        <translation>Benennen Sie sie mit %1; oder stecken Sie einen an einen anderen Thunderbolt-Anschluss.</translation>
    </message>
    <message>
        <source>The adapter is on the chain, but its controller does not show.</source>
        <translation>Der Adapter hängt an der Kette, aber sein Controller zeigt sich nicht.</translation>
    </message>
    <message>
        <source>Unplug Thunderbolt and power for ten seconds and attach again; another cable, another port; then repair.</source>
        <translation>Trennen Sie Thunderbolt und Strom für zehn Sekunden und schließen Sie ihn wieder an; anderes Kabel, anderer Anschluss; dann Reparatur.</translation>
    </message>
    <message>
        <source>The driver runs, but has not taken this adapter.</source>
        <translation>Der Treiber läuft, hat diesen Adapter aber nicht übernommen.</translation>
    </message>
    <message>
        <source>Unplug it and attach it again; restart; then collect the logs.</source>
        <translation>Trennen Sie ihn und schließen Sie ihn wieder an; Neustart; dann die Protokolle sammeln.</translation>
    </message>
    <message>
        <source>Only one of the two ports shows (%1, %2); the adapter cannot be listed.</source>
        <translation>Nur einer der beiden Ports zeigt sich (%1, %2); der Adapter kann nicht aufgeführt werden.</translation>
    </message>
    <message>
        <source>Unplug it for ten seconds and attach it again; restart; with one function only: repair.</source>
        <translation>Trennen Sie ihn für zehn Sekunden und schließen Sie ihn wieder an; Neustart; bei nur einer Funktion: Reparatur.</translation>
    </message>
    <message>
        <source>An adapter of a model that this version does not know is attached (%1).</source>
        <translation>Ein Adapter eines Modells, das diese Version nicht kennt, ist angeschlossen (%1).</translation>
    </message>
    <message>
        <source>Update the utility.</source>
        <translation>Aktualisieren Sie das Dienstprogramm.</translation>
    </message>
    <message>
        <source>1 volume is still off since an update: %1.</source>
        <translation>1 Volume ist seit einer Aktualisierung noch ausgehängt: %1.</translation>
    </message>
    <message>
        <source>1 volume is still off since the update of %1: %2.</source>
        <translation>1 Volume ist seit der Aktualisierung vom %1 noch ausgehängt: %2.</translation>
    </message>
    <message>
        <source>%1 volumes are still off since an update: %2.</source>
        <translation>%1 Volumes sind seit einer Aktualisierung noch ausgehängt: %2.</translation>
    </message>
    <message>
        <source>%1 volumes are still off since the update of %2: %3.</source>
        <translation>%1 Volumes sind seit der Aktualisierung vom %2 noch ausgehängt: %3.</translation>
    </message>
    <message>
        <source>Mount them: `corvane volumes mount`, or the button in the window.</source>
        <translation>Hängen Sie sie ein: `corvane volumes mount` oder die Taste im Fenster.</translation>
    </message>
    <message>
        <source>Neither port&apos;s interface, %1 nor %2, is known to the network stack.</source>
        <translation>Der Netzwerkstapel kennt keine der Schnittstellen der Ports, weder %1 noch %2.</translation>
    </message>
    <message>
        <source>The driver calls the interface %1, the network stack does not know it.</source>
        <translation>Der Treiber nennt die Schnittstelle %1, der Netzwerkstapel kennt sie nicht.</translation>
    </message>
    <message>
        <source>Open Network settings; unplug the adapter and attach it again; restart.</source>
        <translation>Öffnen Sie die Netzwerkeinstellungen; trennen Sie den Adapter und schließen Sie ihn wieder an; Neustart.</translation>
    </message>
    <message>
        <source>The link is up, but no disk shows behind it any more.</source>
        <translation>Die Verbindung steht, aber dahinter zeigt sich keine Festplatte mehr.</translation>
    </message>
    <message>
        <source>See the storage&apos;s own panel; zoning and LUN masking for %1; then the cable to the right port.</source>
        <translation>Sehen Sie in der Verwaltung des Speichers nach; Zoning und LUN-Masking für %1; dann das Kabel zum richtigen Port.</translation>
    </message>
    <message>
        <source>The link is up, but no disk shows behind any Fibre Channel port.</source>
        <translation>Die Verbindung steht, aber hinter keinem Fibre-Channel-Port zeigt sich eine Festplatte.</translation>
    </message>
    <message>
        <source>Nothing for tape; else zoning on the switch and LUN masking on the storage for %1.</source>
        <translation>Nichts bei Bandlaufwerken; sonst Zoning am Switch und LUN-Masking am Speicher für %1.</translation>
    </message>
    <message>
        <source>No %1 driver is installed; 1 adapter needs it: %2.</source>
        <translation>Kein %1-Treiber ist installiert; 1 Adapter braucht ihn: %2.</translation>
    </message>
    <message>
        <source>No %1 driver is installed; %2 adapters need it: %3.</source>
        <translation>Kein %1-Treiber ist installiert; %2 Adapter brauchen ihn: %3.</translation>
    </message>
    <message>
        <source>Install the %1 driver package, allow it when the system asks, restart.</source>
        <translation>Installieren Sie das %1-Treiberpaket, erlauben Sie es, wenn das System fragt, Neustart.</translation>
    </message>
    <message>
        <source>%1 are served by the driver %2, but %3 is installed in front of it.</source>
        <translation>%1 werden vom Treiber %2 bedient, aber %3 ist vor ihm installiert.</translation>
    </message>
    <message>
        <source>%1 are served by the driver %2, which is not installed any more.</source>
        <translation>%1 werden vom Treiber %2 bedient, der nicht mehr installiert ist.</translation>
    </message>
    <message>
        <source>Remove the package that is not meant for these adapters and restart; install the right one again if nothing is listed then.</source>
        <translation>Entfernen Sie das Paket, das nicht für diese Adapter gedacht ist, und starten Sie neu; installieren Sie das richtige erneut, falls dann nichts aufgeführt ist.</translation>
    </message>
    <message>
        <source>Restart, then install the driver package again.</source>
        <translation>Starten Sie neu und installieren Sie dann das Treiberpaket erneut.</translation>
    </message>
    <message>
        <source>System Preferences &gt; Security &amp; Privacy: allow the maker&apos;s software, restart; the button stays half an hour, attach the adapter again to get it back.</source>
        <translation>Systemeinstellungen &gt; Sicherheit: Software des Herstellers erlauben, Neustart; die Taste bleibt eine halbe Stunde, schließen Sie den Adapter erneut an, um sie wieder zu erhalten.</translation>
    </message>
    <message>
        <source>First permit kernel extensions of identified developers in Startup Security Utility; then System Settings &gt; Privacy &amp; Security: allow the maker&apos;s software, restart.</source>
        <translation>Erlauben Sie zuerst im Startsicherheitsdienstprogramm Kernel-Erweiterungen verifizierter Entwickler; dann Systemeinstellungen &gt; Datenschutz &amp; Sicherheit: Software des Herstellers erlauben, Neustart.</translation>
    </message>
    <message>
        <source>System Settings &gt; Privacy &amp; Security: allow the maker&apos;s software, restart.</source>
        <translation>Systemeinstellungen &gt; Datenschutz &amp; Sicherheit: Software des Herstellers erlauben, Neustart.</translation>
    </message>
    <message>
        <source>The driver %1 is installed but does not run; %2 cannot be used.</source>
        <translation>Der Treiber %1 ist installiert, läuft aber nicht; %2 können nicht benutzt werden.</translation>
    </message>
    <message>
        <source>The %1 driver runs, but its bundle tells no version; what depends on it is not asked.</source>
        <translation>Der %1-Treiber läuft, aber sein Paket nennt keine Version; was davon abhängt, wird nicht gefragt.</translation>
    </message>
    <message>
        <source>Install the driver package again.</source>
        <translation>Installieren Sie das Treiberpaket erneut.</translation>
    </message>
    <message>
        <source>The %1 driver %2 is too old: modules are not read.</source>
        <translation>Der %1-Treiber %2 ist zu alt: Module werden nicht gelesen.</translation>
    </message>
    <message>
        <source>The %1 driver %2 is too old: module, preset and offload are not read.</source>
        <translation>Der %1-Treiber %2 ist zu alt: Modul, Voreinstellung und Offload werden nicht gelesen.</translation>
    </message>
    <message>
        <source>Install the current %1 driver and restart.</source>
        <translation>Installieren Sie den aktuellen %1-Treiber und starten Sie neu.</translation>
    </message>
    <message>
        <source>The watch for %1 adapters could not be started; which are attached is not known.</source>
        <translation>Die Überwachung der %1-Adapter konnte nicht gestartet werden; welche angeschlossen sind, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Quit the utility and start it again; then restart the computer; then collect the logs.</source>
        <translation>Beenden Sie das Dienstprogramm und öffnen Sie es erneut; dann starten Sie den Computer neu; dann die Protokolle sammeln.</translation>
    </message>
    <message>
        <source>Nothing of the 10GbE ports could be read: the answer file is %1.</source>
        <translation>Von den 10GbE-Ports konnte nichts gelesen werden: Die Antwortdatei ist %1.</translation>
    </message>
    <message>
        <source>not writable</source>
        <translation>nicht beschreibbar</translation>
    </message>
    <message>
        <source>held by another program</source>
        <translation>von einem anderen Programm belegt</translation>
    </message>
    <message>
        <source>Wait for the other corvane program; then see who owns /private/tmp/corvaneOutput.txt and whether the disk is full.</source>
        <translation>Warten Sie auf das andere corvane-Programm; prüfen Sie dann, wem /private/tmp/corvaneOutput.txt gehört und ob die Festplatte voll ist.</translation>
    </message>
    <message>
        <source>corvaneutil is not installed; module, preset and offload of %1 are not known.</source>
        <translation>corvaneutil ist nicht installiert; Modul, Voreinstellung und Offload von %1 sind nicht bekannt.</translation>
    </message>
    <message>
        <source>Install the 10GbE software package; link and MTU are read without it.</source>
        <translation>Installieren Sie das 10GbE-Softwarepaket; Verbindung und MTU werden auch ohne es gelesen.</translation>
    </message>
    <message>
        <source>corvaneutil did not answer within %1 s; module, preset and offload of %2 are not known.</source>
        <translation>corvaneutil hat nicht innerhalb von %1 s geantwortet; Modul, Voreinstellung und Offload von %2 sind nicht bekannt.</translation>
    </message>
    <message>
        <source>Look again in a minute; then unplug the 10GbE adapters and attach them again; then restart.</source>
        <translation>Sehen Sie in einer Minute noch einmal nach; dann trennen Sie die 10GbE-Adapter und schließen sie wieder an; dann Neustart.</translation>
    </message>
    <message>
        <source>corvaneutil does not answer with settings but with: %1.</source>
        <translation>corvaneutil antwortet nicht mit Einstellungen, sondern mit: %1.</translation>
    </message>
    <message>
        <source>Install tool and driver of one release; then send a journal.</source>
        <translation>Installieren Sie Werkzeug und Treiber derselben Ausgabe; dann senden Sie ein Journal.</translation>
    </message>
    <message>
        <source>Two Fibre Channel drivers are installed; %1 is the one that counts.</source>
        <translation>Zwei Fibre-Channel-Treiber sind installiert; %1 ist der, der zählt.</translation>
    </message>
    <message>
        <source>Nothing while all adapters are listed; else remove the other package.</source>
        <translation>Nichts, solange alle Adapter aufgeführt sind; sonst entfernen Sie das andere Paket.</translation>
    </message>
    <message>
        <source>%1 has been updating %2.</source>
        <translation>%1 aktualisiert gerade %2.</translation>
    </message>
    <message>
        <source>%1 has been updating %2 since %3.</source>
        <translation>%1 aktualisiert %2 seit %3.</translation>
    </message>
    <message>
        <source>Wait until it ends; do not unplug anything on that chain.</source>
        <translation>Warten Sie, bis es endet; trennen Sie nichts an dieser Kette.</translation>
    </message>
    <message>
        <source>No adapter is attached.</source>
        <translation>Kein Adapter ist angeschlossen.</translation>
    </message>
    <message>
        <source>Attach one; if one is attached: its power, its Thunderbolt cable, another Thunderbolt port.</source>
        <translation>Schließen Sie einen an; falls einer angeschlossen ist: sein Strom, sein Thunderbolt-Kabel, ein anderer Thunderbolt-Anschluss.</translation>
    </message>
    <message>
        <source>The driver does not answer for any port of %1; nothing of them is known.</source>
        <translation>Der Treiber antwortet für keinen Port von %1; nichts von ihnen ist bekannt.</translation>
    </message>
    <message>
        <source>The driver does not answer for this port (%1); nothing of it is known.</source>
        <translation>Der Treiber antwortet für diesen Port nicht (%1); nichts von ihm ist bekannt.</translation>
    </message>
    <message>
        <source>The driver answers for neither port (%1); nothing of them is known.</source>
        <translation>Der Treiber antwortet für keinen der Ports (%1); nichts von ihnen ist bekannt.</translation>
    </message>
    <message>
        <source>Firmware %1 was flashed on %2; after being attached again the adapter still runs %3.</source>
        <translation>Firmware %1 wurde am %2 aufgespielt; nach erneutem Anschließen läuft der Adapter noch mit %3.</translation>
    </message>
    <message>
        <source>Firmware %1 was flashed; after being attached again the adapter still runs %2.</source>
        <translation>Firmware %1 wurde aufgespielt; nach erneutem Anschließen läuft der Adapter noch mit %2.</translation>
    </message>
    <message>
        <source>Flash it again and read what the update says; then another package; then repair.</source>
        <translation>Spielen Sie sie erneut auf und lesen Sie, was die Aktualisierung meldet; dann ein anderes Paket; dann Reparatur.</translation>
    </message>
    <message>
        <source>Firmware %1, flashed on %2, waits; %3 runs.</source>
        <translation>Firmware %1, aufgespielt am %2, wartet; %3 läuft.</translation>
    </message>
    <message>
        <source>Firmware %1 waits; %2 runs.</source>
        <translation>Firmware %1 wartet; %2 läuft.</translation>
    </message>
    <message>
        <source>Unmount what is behind the adapter, unplug its Thunderbolt cable, attach it again.</source>
        <translation>Hängen Sie aus, was hinter dem Adapter ist, trennen Sie sein Thunderbolt-Kabel, schließen Sie es wieder an.</translation>
    </message>
    <message>
        <source>Runs firmware %1; %2 of the same product run %3.</source>
        <translation>Läuft mit Firmware %1; %2 desselben Produkts mit %3.</translation>
    </message>
    <message>
        <source>Update it with the others&apos; package when convenient.</source>
        <translation>Aktualisieren Sie ihn bei Gelegenheit mit dem Paket der anderen.</translation>
    </message>
    <message>
        <source>Firmware %1 is offered; %2 runs.</source>
        <translation>Firmware %1 wird angeboten; %2 läuft.</translation>
    </message>
    <message>
        <source>Update when convenient.</source>
        <translation>Aktualisieren Sie bei Gelegenheit.</translation>
    </message>
    <message>
        <source>No link with %1.</source>
        <translation>Keine Verbindung mit %1.</translation>
    </message>
    <message>
        <source>No link: set to Arbitrated Loop, which a %1 does not have.</source>
        <translation>Keine Verbindung: auf Arbitrated Loop gestellt, was ein %1 nicht hat.</translation>
    </message>
    <message>
        <source>No link: set to %1, which a %2 does not have (%3).</source>
        <translation>Keine Verbindung: auf %1 gestellt, was ein %2 nicht hat (%3).</translation>
    </message>
    <message>
        <source>No link: set to %1, but the module is made for %2.</source>
        <translation>Keine Verbindung: auf %1 gestellt, aber das Modul ist für %2 gemacht.</translation>
    </message>
    <message>
        <source>No link: the module names %1 and no Fibre Channel speed of this port; only its bit rate passed the test.</source>
        <translation>Keine Verbindung: Das Modul nennt %1 und keine Fibre-Channel-Geschwindigkeit dieses Ports; nur seine Bitrate hat den Test bestanden.</translation>
    </message>
    <message>
        <source>Neither port has a link; the modules are good, and nothing shows that they were ever used.</source>
        <translation>Keiner der Ports hat eine Verbindung; die Module sind gut, und nichts zeigt, dass sie je benutzt wurden.</translation>
    </message>
    <message>
        <source>Neither port has a link; nothing shows that they were ever used.</source>
        <translation>Keiner der Ports hat eine Verbindung; nichts zeigt, dass sie je benutzt wurden.</translation>
    </message>
    <message>
        <source>No link; the module is good, and nothing shows that it was ever used.</source>
        <translation>Keine Verbindung; das Modul ist gut, und nichts zeigt, dass er je benutzt wurde.</translation>
    </message>
    <message>
        <source>No link; nothing shows that it was ever used.</source>
        <translation>Keine Verbindung; nichts zeigt, dass er je benutzt wurde.</translation>
    </message>
    <message>
        <source>If a cable is plugged in: see that the other end is on, push in both plugs, swap the two fibres, try a cable that works. If it is a spare: nothing; the warning goes by itself after a week, or with the module.</source>
        <translation>Falls ein Kabel steckt: Prüfen Sie, ob die Gegenseite an ist, drücken Sie beide Stecker ein, tauschen Sie die zwei Fasern, versuchen Sie ein Kabel, das funktioniert. Falls er ein Reserveport ist: nichts; die Warnung geht nach einer Woche von selbst oder mit dem Modul.</translation>
    </message>
    <message>
        <source>%1 a module of a kind that the driver does not know; this port needs %2.</source>
        <translation>%1 ein Modul einer Art, die der Treiber nicht kennt; dieser Port braucht %2.</translation>
    </message>
    <message>
        <source>%1 a %2 module (%3); this port needs %4.</source>
        <translation>%1 ein Modul mit %2 (%3); dieser Port braucht %4.</translation>
    </message>
    <message>
        <source>%1 a %2 module; this port needs %3.</source>
        <translation>%1 ein Modul mit %2; dieser Port braucht %3.</translation>
    </message>
    <message>
        <source>No link: %1.</source>
        <translation>Keine Verbindung: %1.</translation>
    </message>
    <message>
        <source>Neither port has a link: %1.</source>
        <translation>Keiner der Ports hat eine Verbindung: %1.</translation>
    </message>
    <message>
        <source>%1; last seen %2 at %3</source>
        <translation>%1; zuletzt gesehen %2 mit %3</translation>
    </message>
    <message>
        <source>%1; last seen %2</source>
        <translation>%1; zuletzt gesehen %2</translation>
    </message>
    <message>
        <source>%1; the module is good (%2)</source>
        <translation>%1; das Modul ist gut (%2)</translation>
    </message>
    <message>
        <source>%1; the module is good</source>
        <translation>%1; das Modul ist gut</translation>
    </message>
    <message>
        <source>the module is good (%1)</source>
        <translation>das Modul ist gut (%1)</translation>
    </message>
    <message>
        <source>the module is good</source>
        <translation>das Modul ist gut</translation>
    </message>
    <message>
        <source>the modules are good (%1; %2)</source>
        <translation>die Module sind gut (%1; %2)</translation>
    </message>
    <message>
        <source>nothing comes from the other end</source>
        <translation>von der Gegenseite kommt nichts</translation>
    </message>
    <message>
        <source>topology set to Arbitrated Loop</source>
        <translation>Topologie Arbitrated Loop</translation>
    </message>
    <message>
        <source>speed set to %1 and topology to Arbitrated Loop</source>
        <translation>Geschwindigkeit %1 und Topologie Arbitrated Loop</translation>
    </message>
    <message>
        <source>speed set to %1</source>
        <translation>Geschwindigkeit %1</translation>
    </message>
    <message>
        <source>Neither port has a link</source>
        <translation>Keiner der Ports hat eine Verbindung</translation>
    </message>
    <message>
        <source>Set the speed to automatic; loop only for storage or tape that needs it, point to point for a switch; then see to the other end, the plugs, the cable.</source>
        <translation>Stellen Sie die Geschwindigkeit auf automatisch; Loop nur für Speicher oder Band, die es brauchen, Punkt zu Punkt für einen Switch; dann die Gegenseite, die Stecker, das Kabel.</translation>
    </message>
    <message>
        <source>See that the other end is on and its port enabled; push the plugs in at both ends, swap the two fibres, clean them; try the cable and module of a port that works; 8G to a switch: its fill word; 8G straight to storage: Arbitrated Loop.</source>
        <translation>Prüfen Sie, ob die Gegenseite an und ihr Port eingeschaltet ist; drücken Sie die Stecker an beiden Enden ein, tauschen Sie die zwei Fasern, reinigen Sie sie; versuchen Sie Kabel und Modul eines Ports, der funktioniert; 8G an einem Switch: sein Füllwort; 8G direkt am Speicher: Arbitrated Loop.</translation>
    </message>
    <message>
        <source>See that the other end is on and its port enabled; push the plugs in at both ends; another cable, another switch port.</source>
        <translation>Prüfen Sie, ob die Gegenseite an und ihr Port eingeschaltet ist; drücken Sie die Stecker an beiden Enden ein; ein anderes Kabel, ein anderer Switch-Port.</translation>
    </message>
    <message>
        <source>The link dropped %1 times in the last ten minutes.</source>
        <translation>Die Verbindung ist in den letzten zehn Minuten %1-mal abgebrochen.</translation>
    </message>
    <message>
        <source>Reseat and clean plugs; another cable; another module; then the other end.</source>
        <translation>Stecker neu einsetzen und reinigen; ein anderes Kabel; ein anderes Modul; dann die Gegenseite.</translation>
    </message>
    <message>
        <source>Whether there is a link could not be told (%1).</source>
        <translation>Ob eine Verbindung besteht, ließ sich nicht feststellen (%1).</translation>
    </message>
    <message>
        <source>Look again; run ifconfig %1.</source>
        <translation>Sehen Sie noch einmal nach; rufen Sie ifconfig %1 auf.</translation>
    </message>
    <message>
        <source>Runs at %1; on %2 it ran at %3.</source>
        <translation>Läuft mit %1; am %2 lief es mit %3.</translation>
    </message>
    <message>
        <source>Runs at %1; port and module could do %2.</source>
        <translation>Läuft mit %1; Port und Modul könnten %2.</translation>
    </message>
    <message>
        <source>Runs at %1, set to %2.</source>
        <translation>Läuft mit %1, eingestellt ist %2.</translation>
    </message>
    <message>
        <source>Runs in %1, set to %2.</source>
        <translation>Läuft in %1, eingestellt ist %2.</translation>
    </message>
    <message>
        <source>Set it again; unplug the adapter and attach it again.</source>
        <translation>Stellen Sie es erneut ein; trennen Sie den Adapter und schließen Sie ihn wieder an.</translation>
    </message>
    <message>
        <source>Only 100 Mb/s: two of the four pairs.</source>
        <translation>Nur 100 Mb/s: zwei der vier Aderpaare.</translation>
    </message>
    <message>
        <source>Another cable (Cat 6A for 10G over 100 m); the wall socket&apos;s wiring; then the switch port&apos;s setting.</source>
        <translation>Ein anderes Kabel (Cat 6A für 10G über 100 m); die Verdrahtung der Dose; dann die Einstellung des Switch-Ports.</translation>
    </message>
    <message>
        <source>Clean and reseat the plugs; see what was changed at the other end; try another module.</source>
        <translation>Stecker reinigen und neu einsetzen; sehen, was an der Gegenseite geändert wurde; ein anderes Modul versuchen.</translation>
    </message>
    <message>
        <source>Nothing if the other end can do no more; else its speed setting and module; fibre too long for %1 (16G: 100 m OM3, 35 m OM2).</source>
        <translation>Nichts, wenn die Gegenseite nicht mehr kann; sonst deren Geschwindigkeit und Modul; Faser zu lang für %1 (16G: 100 m OM3, 35 m OM2).</translation>
    </message>
    <message>
        <source>The link is coming back after a change of %1 %2 s ago.</source>
        <translation>Die Verbindung kommt nach einer Änderung (%1) vor %2 s wieder.</translation>
    </message>
    <message>
        <source>Look again in ten seconds.</source>
        <translation>Sehen Sie in zehn Sekunden noch einmal nach.</translation>
    </message>
    <message>
        <source>Nothing is connected, as far as can be told.</source>
        <translation>Soweit sich sagen lässt, ist nichts angeschlossen.</translation>
    </message>
    <message>
        <source>Nothing for a spare port.</source>
        <translation>Nichts bei einem Reserveport.</translation>
    </message>
    <message>
        <source>all bytes are alike</source>
        <translation>alle Bytes sind gleich</translation>
    </message>
    <message>
        <source>the link is up, yet the cage reads as empty</source>
        <translation>die Verbindung steht, doch der Schacht meldet sich leer</translation>
    </message>
    <message>
        <source>Carries a link although:</source>
        <translation>Hat eine Verbindung, obwohl:</translation>
    </message>
    <message>
        <source>No link:</source>
        <translation>Keine Verbindung:</translation>
    </message>
    <message>
        <source>%1. It names %2 itself</source>
        <translation>%1. Es nennt selbst %2</translation>
    </message>
    <message>
        <source>%1. Its checksum is wrong too</source>
        <translation>%1. Auch seine Prüfsumme ist falsch</translation>
    </message>
    <message>
        <source>Nothing now; keep a spare of the right kind.</source>
        <translation>Jetzt nichts; halten Sie eines der richtigen Art bereit.</translation>
    </message>
    <message>
        <source>Put in a 10G optical module, then unplug Thunderbolt and attach it again with the adapter powered.</source>
        <translation>Setzen Sie ein optisches 10G-Modul ein, trennen Sie dann Thunderbolt und schließen Sie es bei eingeschaltetem Adapter wieder an.</translation>
    </message>
    <message>
        <source>Neither port has its module any more: %1 and %2, with a link on %3.</source>
        <translation>Keiner der Ports hat sein Modul noch: %1 und %2, mit Verbindung am %3.</translation>
    </message>
    <message>
        <source>The module %1 with a link on %2 is not in the cage any more.</source>
        <translation>Das Modul %1 mit Verbindung am %2 ist nicht mehr im Schacht.</translation>
    </message>
    <message>
        <source>Push the module in until it clicks; if it was taken out on purpose, nothing.</source>
        <translation>Drücken Sie das Modul ein, bis es klickt; wurde es absichtlich entfernt, nichts.</translation>
    </message>
    <message>
        <source>Neither port&apos;s module can be read (%1).</source>
        <translation>Das Modul keines der Ports kann gelesen werden (%1).</translation>
    </message>
    <message>
        <source>A module is there but cannot be read (%1).</source>
        <translation>Ein Modul ist da, kann aber nicht gelesen werden (%1).</translation>
    </message>
    <message>
        <source>Pull it out and push it in again; try it in the other port; try another module.</source>
        <translation>Ziehen Sie es heraus und stecken Sie es wieder ein; versuchen Sie es im anderen Port; versuchen Sie ein anderes Modul.</translation>
    </message>
    <message>
        <source>The module&apos;s identification is garbled (starts with %1, checksum %2 instead of %3); whether it suits cannot be told.</source>
        <translation>Die Kennung des Moduls ist verstümmelt (beginnt mit %1, Prüfsumme %2 statt %3); ob es passt, lässt sich nicht sagen.</translation>
    </message>
    <message>
        <source>Pull it out, wait ten seconds, push it in; unplug the adapter and attach it again; then another module.</source>
        <translation>Ziehen Sie es heraus, warten Sie zehn Sekunden, stecken Sie es ein; trennen Sie den Adapter und schließen Sie ihn wieder an; dann ein anderes Modul.</translation>
    </message>
    <message>
        <source>Put in a Fibre Channel module for %1.</source>
        <translation>Setzen Sie ein Fibre-Channel-Modul für %1 ein.</translation>
    </message>
    <message>
        <source>The module&apos;s checksum is %1 instead of %2; what it says of itself cannot be relied on.</source>
        <translation>Die Prüfsumme des Moduls ist %1 statt %2; auf seine Angaben ist kein Verlass.</translation>
    </message>
    <message>
        <source>Nothing while the link works; a rewritten module often looks so; try another if there is trouble.</source>
        <translation>Nichts, solange die Verbindung arbeitet; ein umgeschriebenes Modul sieht oft so aus; bei Schwierigkeiten ein anderes versuchen.</translation>
    </message>
    <message>
        <source>The checksum over serial number and date is %1 instead of %2.</source>
        <translation>Die Prüfsumme über Seriennummer und Datum ist %1 statt %2.</translation>
    </message>
    <message>
        <source>Nothing; do not rely on the serial number.</source>
        <translation>Nichts; verlassen Sie sich nicht auf die Seriennummer.</translation>
    </message>
    <message>
        <source>A 1G module; this port can do 10G.</source>
        <translation>Ein 1G-Modul; dieser Port kann 10G.</translation>
    </message>
    <message>
        <source>Nothing if it is meant; else a 10G module.</source>
        <translation>Nichts, wenn es so gedacht ist; sonst ein 10G-Modul.</translation>
    </message>
    <message>
        <source>Neither port has a module.</source>
        <translation>Keiner der Ports hat ein Modul.</translation>
    </message>
    <message>
        <source>Port has no module.</source>
        <translation>Der Port hat kein Modul.</translation>
    </message>
    <message>
        <source>Nothing for a spare port; else put in a module for %1.</source>
        <translation>Nichts bei einem Reserveport; sonst ein Modul für %1 einsetzen.</translation>
    </message>
    <message>
        <source>driver of unknown version</source>
        <translation>Treiber unbekannter Version</translation>
    </message>
    <message>
        <source>Thunderbolt port not known</source>
        <translation>Thunderbolt-Anschluss nicht bekannt</translation>
    </message>
    <message>
        <source>Thunderbolt port %1, hop %2</source>
        <translation>Thunderbolt-Anschluss %1, Stelle %2</translation>
    </message>
    <message>
        <source>Place on the chain</source>
        <translation>Stelle in der Kette</translation>
    </message>
    <message>
        <source>an answer of zeros</source>
        <translation>eine Antwort aus Nullen</translation>
    </message>
    <message>
        <source>speed %1, %2</source>
        <translation>Geschwindigkeit %1, %2</translation>
    </message>
    <message>
        <source>of an unknown kind</source>
        <translation>unbekannter Art</translation>
    </message>
    <message>
        <source>up at %1, %2</source>
        <translation>verbunden mit %1, %2</translation>
    </message>
    <message>
        <source>Set the speed to automatic.</source>
        <translation>Stellen Sie die Geschwindigkeit auf automatisch.</translation>
    </message>
    <message>
        <source>Unplug the adapter and attach it again; restart; then collect the logs.</source>
        <translation>Trennen Sie den Adapter und schließen Sie ihn wieder an; Neustart; dann die Protokolle sammeln.</translation>
    </message>
    <message>
        <source>Set the topology to point to point.</source>
        <translation>Stellen Sie die Topologie auf Punkt zu Punkt.</translation>
    </message>
    <message>
        <source>Set the speed to automatic; or put in a module for %1.</source>
        <translation>Stellen Sie die Geschwindigkeit auf automatisch; oder setzen Sie ein Modul für %1 ein.</translation>
    </message>
    <message>
        <source>The hard AL_PA %1 is no loop address; the port takes a free one instead, or none.</source>
        <translation>Die feste AL_PA %1 ist keine Loop-Adresse; der Port nimmt stattdessen eine freie oder keine.</translation>
    </message>
    <message>
        <source>Choose one of the 126 addresses, or 0 for none.</source>
        <translation>Wählen Sie eine der 126 Adressen oder 0 für keine.</translation>
    </message>
    <message>
        <source>%1 ask for the same hard AL_PA %2.</source>
        <translation>%1 verlangen dieselbe feste AL_PA %2.</translation>
    </message>
    <message>
        <source>Nothing if they are on different loops; on one loop give one of them another.</source>
        <translation>Nichts an verschiedenen Loops; an einem Loop geben Sie einem davon eine andere.</translation>
    </message>
    <message>
        <source>Has the hard AL_PA %1, but is not on a loop.</source>
        <translation>Hat die feste AL_PA %1, ist aber an keinem Loop.</translation>
    </message>
    <message>
        <source>Nothing; clear it if the port is not to go back to a loop.</source>
        <translation>Nichts; löschen Sie sie, wenn der Port nicht wieder an einen Loop soll.</translation>
    </message>
    <message>
        <source>Set to %1 instead of automatic; could do %2.</source>
        <translation>Auf %1 statt automatisch gestellt; könnte %2.</translation>
    </message>
    <message>
        <source>Set to %1 instead of automatic.</source>
        <translation>Auf %1 statt automatisch gestellt.</translation>
    </message>
    <message>
        <source>Nothing if it is meant; else set it to automatic.</source>
        <translation>Nichts, wenn es so gedacht ist; sonst auf automatisch stellen.</translation>
    </message>
    <message>
        <source>Queue depth %1 instead of %2.</source>
        <translation>Warteschlangentiefe %1 statt %2.</translation>
    </message>
    <message>
        <source>Nothing if the storage asks for it.</source>
        <translation>Nichts, wenn der Speicher es verlangt.</translation>
    </message>
    <message>
        <source>point to point</source>
        <translation>Punkt zu Punkt</translation>
    </message>
    <message>
        <source>none of the four</source>
        <translation>keine der vier</translation>
    </message>
    <message>
        <source>The speed set</source>
        <translation>Die eingestellte Geschwindigkeit</translation>
    </message>
    <message>
        <source>The topology set</source>
        <translation>Die eingestellte Topologie</translation>
    </message>
    <message>
        <source>The current speed</source>
        <translation>Die gegenwärtige Geschwindigkeit</translation>
    </message>
    <message>
        <source>The current topology</source>
        <translation>Die gegenwärtige Topologie</translation>
    </message>
    <message>
        <source>The two ports are set differently: %1.</source>
        <translation>Die zwei Ports sind verschieden eingestellt: %1.</translation>
    </message>
    <message>
        <source>topology %1 and %2</source>
        <translation>Topologie %1 und %2</translation>
    </message>
    <message>
        <source>queue depth %1 and %2</source>
        <translation>Warteschlangentiefe %1 und %2</translation>
    </message>
    <message>
        <source>preset %1 and %2</source>
        <translation>Voreinstellung %1 und %2</translation>
    </message>
    <message>
        <source>speed %1 and %2</source>
        <translation>Geschwindigkeit %1 und %2</translation>
    </message>
    <message>
        <source>Nothing if it is meant; else set them alike.</source>
        <translation>Nichts, wenn es so gedacht ist; sonst gleich einstellen.</translation>
    </message>
    <message>
        <source>%1 was set to %2 on %3 and is %4.</source>
        <translation>%1 wurde am %3 auf %2 gestellt und ist %4.</translation>
    </message>
    <message>
        <source>Set it again; look who else changes it.</source>
        <translation>Stellen Sie es erneut ein; sehen Sie, wer es sonst ändert.</translation>
    </message>
    <message>
        <source>%1 reads %2, which has no meaning here.</source>
        <translation>%1 lautet %2, was hier nichts bedeutet.</translation>
    </message>
    <message>
        <source>Update utility and driver to one release.</source>
        <translation>Bringen Sie Dienstprogramm und Treiber auf dieselbe Ausgabe.</translation>
    </message>
    <message>
        <source>Unplug the adapter and attach it again; restart; install the driver again.</source>
        <translation>Trennen Sie den Adapter und schließen Sie ihn wieder an; Neustart; installieren Sie den Treiber erneut.</translation>
    </message>
    <message>
        <source>Checksum offload and RSC off.</source>
        <translation>Prüfsummen-Offload und RSC aus.</translation>
    </message>
    <message>
        <source>Checksum offload off.</source>
        <translation>Prüfsummen-Offload aus.</translation>
    </message>
    <message>
        <source>RSC off.</source>
        <translation>RSC aus.</translation>
    </message>
    <message>
        <source>Neither port is enabled by the driver.</source>
        <translation>Der Treiber hat keinen der Ports eingeschaltet.</translation>
    </message>
    <message>
        <source>The network stack has not named the interface of port %1 within %2 s.</source>
        <translation>Der Netzwerkstapel hat die Schnittstelle von Port %1 nicht innerhalb von %2 s benannt.</translation>
    </message>
    <message>
        <source>Open Network settings so that the interface is added; unplug and attach again; restart.</source>
        <translation>Öffnen Sie die Netzwerkeinstellungen, damit die Schnittstelle hinzugefügt wird; trennen und wieder anschließen; Neustart.</translation>
    </message>
    <message>
        <source>1 or 2</source>
        <translation>1 oder 2</translation>
    </message>
    <message>
        <source>The driver has not enabled this port; nothing of it is read.</source>
        <translation>Der Treiber hat diesen Port nicht eingeschaltet; nichts von ihm wird gelesen.</translation>
    </message>
    <message>
        <source>MTU %1 is below 1280; IPv6 does not work and everything is slow.</source>
        <translation>MTU %1 liegt unter 1280; IPv6 arbeitet nicht und alles ist langsam.</translation>
    </message>
    <message>
        <source>Set it to %1 in Network settings, or to what the whole network uses.</source>
        <translation>Stellen Sie sie in den Netzwerkeinstellungen auf %1 oder auf das, was das ganze Netz benutzt.</translation>
    </message>
    <message>
        <source>Ring and interrupt settings are none of the four presets (%1).</source>
        <translation>Ring- und Interrupt-Einstellungen sind keine der vier Voreinstellungen (%1).</translation>
    </message>
    <message>
        <source>Nothing if they are meant; else choose a preset.</source>
        <translation>Nichts, wenn sie so gedacht sind; sonst eine Voreinstellung wählen.</translation>
    </message>
    <message>
        <source>Nothing if it is meant (RSC off suits bridging); else switch it on.</source>
        <translation>Nichts, wenn es so gedacht ist (RSC aus passt zu Bridging); sonst einschalten.</translation>
    </message>
    <message>
        <source>MTU %1 on port 1, %2 on port 2.</source>
        <translation>MTU %1 an Port 1, %2 an Port 2.</translation>
    </message>
    <message>
        <source>Nothing for two networks; in one network set both alike.</source>
        <translation>Nichts bei zwei Netzen; in einem Netz beide gleich einstellen.</translation>
    </message>
    <message>
        <source>Not read: %1.</source>
        <translation>Nicht gelesen: %1.</translation>
    </message>
    <message>
        <source>Look again; if it stays, install tool and driver of one release.</source>
        <translation>Sehen Sie noch einmal nach; bleibt es, installieren Sie Werkzeug und Treiber derselben Ausgabe.</translation>
    </message>
    <message>
        <source>the driver is too old</source>
        <translation>der Treiber ist zu alt</translation>
    </message>
    <message>
        <source>the port is not enabled</source>
        <translation>der Port ist nicht eingeschaltet</translation>
    </message>
    <message>
        <source>not offered here</source>
        <translation>hier nicht angeboten</translation>
    </message>
    <message>
        <source>corvaneutil is not installed</source>
        <translation>corvaneutil ist nicht installiert</translation>
    </message>
    <message>
        <source>the tool does not answer</source>
        <translation>das Werkzeug antwortet nicht</translation>
    </message>
    <message>
        <source>the answer file cannot be used</source>
        <translation>die Antwortdatei ist nicht benutzbar</translation>
    </message>
    <message>
        <source>the answer makes no sense</source>
        <translation>die Antwort ergibt keinen Sinn</translation>
    </message>
    <message>
        <source>Monitor not started</source>
        <translation>Überwachung nicht gestartet</translation>
    </message>
    <message>
        <source>Driver missing</source>
        <translation>Treiber fehlt</translation>
    </message>
    <message>
        <source>Another driver runs</source>
        <translation>Anderer Treiber läuft</translation>
    </message>
    <message>
        <source>Driver does not run</source>
        <translation>Treiber läuft nicht</translation>
    </message>
    <message>
        <source>Driver version unknown</source>
        <translation>Treiberversion unbekannt</translation>
    </message>
    <message>
        <source>Driver too old</source>
        <translation>Treiber zu alt</translation>
    </message>
    <message>
        <source>Answer file blocked</source>
        <translation>Antwortdatei blockiert</translation>
    </message>
    <message>
        <source>Adapter tool missing</source>
        <translation>Adapterwerkzeug fehlt</translation>
    </message>
    <message>
        <source>Adapter tool hangs</source>
        <translation>Adapterwerkzeug hängt</translation>
    </message>
    <message>
        <source>Adapter tool unreadable</source>
        <translation>Adapterwerkzeug unlesbar</translation>
    </message>
    <message>
        <source>Two drivers installed</source>
        <translation>Zwei Treiber installiert</translation>
    </message>
    <message>
        <source>Update running</source>
        <translation>Aktualisierung läuft</translation>
    </message>
    <message>
        <source>No adapter attached</source>
        <translation>Kein Adapter angeschlossen</translation>
    </message>
    <message>
        <source>Label used twice</source>
        <translation>Bezeichnung doppelt</translation>
    </message>
    <message>
        <source>Controller does not show</source>
        <translation>Controller zeigt sich nicht</translation>
    </message>
    <message>
        <source>Adapter without driver</source>
        <translation>Adapter ohne Treiber</translation>
    </message>
    <message>
        <source>Only one port shows</source>
        <translation>Nur ein Port zeigt sich</translation>
    </message>
    <message>
        <source>Address used twice</source>
        <translation>Adresse doppelt</translation>
    </message>
    <message>
        <source>Unknown product</source>
        <translation>Unbekanntes Produkt</translation>
    </message>
    <message>
        <source>Firmware not taken</source>
        <translation>Firmware nicht übernommen</translation>
    </message>
    <message>
        <source>Firmware waits</source>
        <translation>Firmware wartet</translation>
    </message>
    <message>
        <source>Older firmware than others</source>
        <translation>Ältere Firmware als andere</translation>
    </message>
    <message>
        <source>Newer firmware offered</source>
        <translation>Neuere Firmware angeboten</translation>
    </message>
    <message>
        <source>Ports set differently</source>
        <translation>Ports verschieden eingestellt</translation>
    </message>
    <message>
        <source>Adapter not enabled</source>
        <translation>Adapter nicht eingeschaltet</translation>
    </message>
    <message>
        <source>Driver does not answer</source>
        <translation>Treiber antwortet nicht</translation>
    </message>
    <message>
        <source>Interface not named</source>
        <translation>Schnittstelle unbenannt</translation>
    </message>
    <message>
        <source>Speed not supported</source>
        <translation>Geschwindigkeit unbekannt</translation>
    </message>
    <message>
        <source>Topology not supported</source>
        <translation>Topologie nicht möglich</translation>
    </message>
    <message>
        <source>Speed not in the module</source>
        <translation>Modul ohne diesen Takt</translation>
    </message>
    <message>
        <source>Port not enabled</source>
        <translation>Port nicht eingeschaltet</translation>
    </message>
    <message>
        <source>Hard AL_PA invalid</source>
        <translation>Feste AL_PA ungültig</translation>
    </message>
    <message>
        <source>MTU too small</source>
        <translation>MTU zu klein</translation>
    </message>
    <message>
        <source>Same hard AL_PA</source>
        <translation>Gleiche feste AL_PA</translation>
    </message>
    <message>
        <source>Hard AL_PA unused</source>
        <translation>Feste AL_PA unbenutzt</translation>
    </message>
    <message>
        <source>Speed forced</source>
        <translation>Geschwindigkeit erzwungen</translation>
    </message>
    <message>
        <source>Own queue depth</source>
        <translation>Eigene Warteschlangentiefe</translation>
    </message>
    <message>
        <source>Custom preset</source>
        <translation>Eigene Voreinstellung</translation>
    </message>
    <message>
        <source>Offload off</source>
        <translation>Offload aus</translation>
    </message>
    <message>
        <source>MTUs differ</source>
        <translation>MTUs verschieden</translation>
    </message>
    <message>
        <source>Setting lost</source>
        <translation>Einstellung verloren</translation>
    </message>
    <message>
        <source>Senseless value</source>
        <translation>Sinnloser Wert</translation>
    </message>
    <message>
        <source>Values not read</source>
        <translation>Werte nicht gelesen</translation>
    </message>
    <message>
        <source>Module gone</source>
        <translation>Modul weg</translation>
    </message>
    <message>
        <source>Module unreadable</source>
        <translation>Modul unlesbar</translation>
    </message>
    <message>
        <source>Module half read</source>
        <translation>Modul halb gelesen</translation>
    </message>
    <message>
        <source>Wrong module</source>
        <translation>Falsches Modul</translation>
    </message>
    <message>
        <source>No Fibre Channel speed</source>
        <translation>Kein Fibre-Channel-Takt</translation>
    </message>
    <message>
        <source>Module checksum wrong</source>
        <translation>Modul-Prüfsumme falsch</translation>
    </message>
    <message>
        <source>Serial checksum wrong</source>
        <translation>Serien-Prüfsumme falsch</translation>
    </message>
    <message>
        <source>1G module</source>
        <translation>1G-Modul</translation>
    </message>
    <message>
        <source>No module</source>
        <translation>Kein Modul</translation>
    </message>
    <message>
        <source>No link, setting forced</source>
        <translation>Keine Verbindung, erzwungen</translation>
    </message>
    <message>
        <source>No link</source>
        <translation>Keine Verbindung</translation>
    </message>
    <message>
        <source>Link flaps</source>
        <translation>Verbindung flattert</translation>
    </message>
    <message>
        <source>No link, maybe unused</source>
        <translation>Keine Verbindung, unbenutzt?</translation>
    </message>
    <message>
        <source>Link not read</source>
        <translation>Verbindung nicht gelesen</translation>
    </message>
    <message>
        <source>Speed not as set</source>
        <translation>Tempo nicht wie gestellt</translation>
    </message>
    <message>
        <source>Topology not as set</source>
        <translation>Topologie nicht wie gestellt</translation>
    </message>
    <message>
        <source>Link at 100 Mb/s</source>
        <translation>Verbindung mit 100 Mb/s</translation>
    </message>
    <message>
        <source>Slower than before</source>
        <translation>Langsamer als zuvor</translation>
    </message>
    <message>
        <source>Slower than possible</source>
        <translation>Langsamer als möglich</translation>
    </message>
    <message>
        <source>Link coming back</source>
        <translation>Verbindung kommt wieder</translation>
    </message>
    <message>
        <source>Spare port</source>
        <translation>Reserveport</translation>
    </message>
    <message>
        <source>Volumes still off</source>
        <translation>Volumes ausgehängt</translation>
    </message>
    <message>
        <source>Interface missing</source>
        <translation>Schnittstelle fehlt</translation>
    </message>
    <message>
        <source>Disks gone</source>
        <translation>Festplatten weg</translation>
    </message>
    <message>
        <source>No disk anywhere</source>
        <translation>Nirgends eine Festplatte</translation>
    </message>
</context>
<context>
    <name>FCQDepthViewController</name>
    <message>
        <source>Queue Depth</source>
        <translation>Warteschlangentiefe</translation>
    </message>
    <message>
        <source>Enter the number of commands that this port may have outstanding, from 1 to 254.</source>
        <translation>Geben Sie an, wie viele Befehle dieser Anschluss offen halten darf, von 1 bis 254.</translation>
    </message>
    <message>
        <source>&amp;Queue depth:</source>
        <translation>&amp;Warteschlangentiefe:</translation>
    </message>
    <message>
        <source>Queue depth</source>
        <translation>Warteschlangentiefe</translation>
    </message>
    <message>
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>FibreChannelDevicePage</name>
    <message>
        <source>Fibre Channel adapter</source>
        <translation>Fibre-Channel-Adapter</translation>
    </message>
    <message>
        <source>Adapter</source>
        <translation>Adapter</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>Device WWN</source>
        <translation>WWN des Geräts</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Firmwareversion</translation>
    </message>
    <message>
        <source>Driver version</source>
        <translation>Treiberversion</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Queue depth</source>
        <translation>&amp;Warteschlangentiefe</translation>
    </message>
    <message>
        <source>Queue depth</source>
        <translation>Warteschlangentiefe</translation>
    </message>
    <message>
        <source>Enter another queue depth</source>
        <translation>Andere Warteschlangentiefe eingeben</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Andere …</translation>
    </message>
</context>
<context>
    <name>FibreChannelPortPage</name>
    <message>
        <source>Fibre Channel port</source>
        <translation>Fibre-Channel-Anschluss</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Port name</source>
        <translation>Anschlussname</translation>
    </message>
    <message>
        <source>Current speed</source>
        <translation>Aktuelle Geschwindigkeit</translation>
    </message>
    <message>
        <source>The port is taking on a new setting</source>
        <translation>Der Anschluss übernimmt eine neue Einstellung</translation>
    </message>
    <message>
        <source>Current topology</source>
        <translation>Aktuelle Topologie</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>S&amp;peed</source>
        <translation>&amp;Geschwindigkeit</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>&amp;Topology</source>
        <translation>&amp;Topologie</translation>
    </message>
    <message>
        <source>Topology</source>
        <translation>Topologie</translation>
    </message>
    <message>
        <source>Hard AL_PA</source>
        <translation>Feste AL_PA</translation>
    </message>
    <message>
        <source>Choose a hard AL_PA</source>
        <translation>Eine feste AL_PA wählen</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Wählen …</translation>
    </message>
    <message>
        <source>Transceiver</source>
        <translation>Transceiver</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Modul</translation>
    </message>
    <message>
        <source>SFP info</source>
        <translation>SFP-Angaben</translation>
    </message>
    <message>
        <source>SFP Info…</source>
        <translation>SFP-Angaben …</translation>
    </message>
    <message>
        <source>Help on transceivers</source>
        <translation>Hilfe zu Transceivern</translation>
    </message>
    <message>
        <source>Transceiver problem</source>
        <translation>Problem mit dem Transceiver</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>CORVANE Utility</source>
        <translation>CORVANE Utility</translation>
    </message>
    <message>
        <source>Ada&amp;pters</source>
        <translation>Ada&amp;pter</translation>
    </message>
    <message>
        <source>Adapters</source>
        <translation>Adapter</translation>
    </message>
    <message>
        <source>Port 1</source>
        <translation>Anschluss 1</translation>
    </message>
    <message>
        <source>Port 2</source>
        <translation>Anschluss 2</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Neu lesen</translation>
    </message>
    <message>
        <source>Read this port again</source>
        <translation>Diesen Anschluss neu lesen</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>Schloss</translation>
    </message>
    <message>
        <source>The logs are being collected</source>
        <translation>Die Protokolle werden gesammelt</translation>
    </message>
    <message>
        <source>Collect Logs</source>
        <translation>Protokolle sammeln</translation>
    </message>
    <message>
        <source>Update firmware from a file</source>
        <translation>Firmware aus einer Datei aktualisieren</translation>
    </message>
    <message>
        <source>Update Firmware…</source>
        <translation>Firmware aktualisieren …</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen …</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Adapter</source>
        <translation>Ada&amp;pter</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Open Support Folder…</source>
        <translation>&amp;Supportordner öffnen …</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>Fenster s&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>Copy Adapter &amp;Details</source>
        <translation>Adapter&amp;daten kopieren</translation>
    </message>
    <message>
        <source>Port &amp;1</source>
        <translation>Anschluss &amp;1</translation>
    </message>
    <message>
        <source>Port &amp;2</source>
        <translation>Anschluss &amp;2</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>Enter &amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>Neu &amp;lesen</translation>
    </message>
    <message>
        <source>&amp;Update Firmware…</source>
        <translation>Firmware &amp;aktualisieren …</translation>
    </message>
    <message>
        <source>&amp;Check for Updates…</source>
        <translation>&amp;Nach Updates suchen …</translation>
    </message>
    <message>
        <source>Collect &amp;Logs</source>
        <translation>&amp;Protokolle sammeln</translation>
    </message>
    <message>
        <source>Loc&amp;k Open</source>
        <translation>&amp;Schloss offen</translation>
    </message>
    <message>
        <source>&amp;About CORVANE Utility</source>
        <translation>Ü&amp;ber CORVANE Utility</translation>
    </message>
    <message>
        <source>Open Registry &amp;Dump…</source>
        <translation>Registry-&amp;Auszug öffnen …</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Minimize</source>
        <translation>&amp;Minimieren</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoomen</translation>
    </message>
</context>
<context>
    <name>MatrixTable</name>
    <message>
        <source>Hard AL_PA</source>
        <translation>Feste AL_PA</translation>
    </message>
    <message>
        <source>Choose the address that this port asks for on an arbitrated loop. Each address may be used once on a loop; they are listed in the order of the standard, from the lowest priority to the highest.</source>
        <translation>Wählen Sie die Adresse, um die sich dieser Anschluss in einer Arbitrated Loop bewirbt. Jede Adresse darf in einer Schleife nur einmal vorkommen; sie stehen in der Reihenfolge der Norm, von der niedrigsten zur höchsten Priorität.</translation>
    </message>
    <message>
        <source>AL_PA addresses</source>
        <translation>AL_PA-Adressen</translation>
    </message>
    <message>
        <source>Chosen AL_PA:</source>
        <translation>Gewählte AL_PA:</translation>
    </message>
    <message>
        <source>Chosen AL_PA</source>
        <translation>Gewählte AL_PA</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
</context>
<context>
    <name>NoAdapterPage</name>
    <message>
        <source>No adapter</source>
        <translation>Kein Adapter</translation>
    </message>
    <message>
        <source>No adapter is connected</source>
        <translation>Kein Adapter ist angeschlossen</translation>
    </message>
    <message>
        <source>Connect a Corvane2 or Corvane3 adapter to one of this computer&apos;s Thunderbolt ports, or to the free Thunderbolt port of a device that is already connected, and switch it on.

It appears in the list on the left within a few seconds.</source>
        <translation>Schließen Sie einen Corvane2- oder Corvane3-Adapter an einen Thunderbolt-Anschluss dieses Computers oder an den freien Thunderbolt-Anschluss eines bereits angeschlossenen Geräts an und schalten Sie ihn ein.

Er erscheint nach wenigen Sekunden links in der Liste.</translation>
    </message>
</context>
<context>
    <name>OnlineUpdate</name>
    <message>
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>&amp;Description</source>
        <translation>&amp;Beschreibung</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Installieren</translation>
    </message>
</context>
<context>
    <name>PasswordSheet</name>
    <message>
        <source>Administrator</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>CORVANE Utility wants to make changes.</source>
        <translation>CORVANE Utility möchte Änderungen vornehmen.</translation>
    </message>
    <message>
        <source>Enter an administrator&apos;s password to allow this. On a bench any password that is not empty is right.</source>
        <translation>Geben Sie das Passwort eines Administrators ein, um dies zu erlauben. Auf einem Prüfstand gilt jedes Passwort, das nicht leer ist.</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
</context>
<context>
    <name>SFPController</name>
    <message>
        <source>SFP Info</source>
        <translation>SFP-Angaben</translation>
    </message>
    <message>
        <source>Transceiver</source>
        <translation>Transceiver</translation>
    </message>
    <message>
        <source>Transceiver code</source>
        <translation>Transceivercode</translation>
    </message>
    <message>
        <source>Connector</source>
        <translation>Stecker</translation>
    </message>
    <message>
        <source>Serial encoding</source>
        <translation>Leitungskodierung</translation>
    </message>
    <message>
        <source>Bit rate</source>
        <translation>Bitrate</translation>
    </message>
    <message>
        <source>Vendor name</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>Vendor OUI</source>
        <translation>OUI des Herstellers</translation>
    </message>
    <message>
        <source>Vendor part number</source>
        <translation>Teilenummer</translation>
    </message>
    <message>
        <source>Vendor revision</source>
        <translation>Revision</translation>
    </message>
    <message>
        <source>Vendor serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Manufacturing date</source>
        <translation>Herstellungsdatum</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>TenGigabitDevicePage</name>
    <message>
        <source>10 Gigabit Ethernet adapter</source>
        <translation>10-Gigabit-Ethernet-Adapter</translation>
    </message>
    <message>
        <source>Adapter</source>
        <translation>Adapter</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Produkt</translation>
    </message>
    <message>
        <source>Driver version</source>
        <translation>Treiberversion</translation>
    </message>
</context>
<context>
    <name>TenGigabitPortPage</name>
    <message>
        <source>10 Gigabit Ethernet port</source>
        <translation>10-Gigabit-Ethernet-Anschluss</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Verbindung</translation>
    </message>
    <message>
        <source>MAC address</source>
        <translation>MAC-Adresse</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Schnittstelle</translation>
    </message>
    <message>
        <source>MTU</source>
        <translation>MTU</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>Modul</translation>
    </message>
    <message>
        <source>Transceiver module</source>
        <translation>Transceivermodul</translation>
    </message>
    <message>
        <source>Transceiver problem</source>
        <translation>Problem mit dem Transceiver</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Performance &amp;mode</source>
        <translation>Leistungs&amp;modus</translation>
    </message>
    <message>
        <source>Performance mode</source>
        <translation>Leistungsmodus</translation>
    </message>
    <message>
        <source>The performance mode is being applied</source>
        <translation>Der Leistungsmodus wird gesetzt</translation>
    </message>
    <message>
        <source>Offload</source>
        <translation>Entlastung</translation>
    </message>
    <message>
        <source>TCP/IPv4 checksum offload</source>
        <translation>TCP/IPv4-Prüfsummen im Adapter rechnen</translation>
    </message>
    <message>
        <source>TCP/IPv4 &amp;checksum offload</source>
        <translation>TCP/IPv4-&amp;Prüfsummen im Adapter rechnen</translation>
    </message>
    <message>
        <source>Receive segment coalescing</source>
        <translation>Empfangene Segmente zusammenfassen</translation>
    </message>
    <message>
        <source>&amp;Receive segment coalescing</source>
        <translation>Empfangene &amp;Segmente zusammenfassen</translation>
    </message>
</context>
<context>
    <name>corvane::AlertSheet</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>corvane::BenchMenu</name>
    <message>
        <source>&amp;Bench</source>
        <translation>&amp;Prüfstand</translation>
    </message>
    <message>
        <source>&amp;Show File…</source>
        <translation>&amp;Datei zeigen …</translation>
    </message>
    <message>
        <source>&amp;Plug In</source>
        <translation>&amp;Anstecken</translation>
    </message>
    <message>
        <source>At %1</source>
        <translation>Bei %1</translation>
    </message>
    <message>
        <source>&amp;Unplug</source>
        <translation>A&amp;bziehen</translation>
    </message>
    <message>
        <source>&amp;Links</source>
        <translation>&amp;Verbindungen</translation>
    </message>
    <message>
        <source>%1  port %2</source>
        <translation>%1  Anschluss %2</translation>
    </message>
    <message>
        <source>Bench file</source>
        <translation>Datei des Prüfstands</translation>
    </message>
    <message>
        <source>Bench</source>
        <translation>Prüfstand</translation>
    </message>
</context>
<context>
    <name>corvane::HelpPopover</name>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>corvane::LockButton</name>
    <message>
        <source>Click the lock to prevent further changes.</source>
        <translation>Zum Schutz vor Änderungen auf das Schloss klicken.</translation>
    </message>
    <message>
        <source>Click the lock to make changes.</source>
        <translation>Zum Bearbeiten auf das Schloss klicken.</translation>
    </message>
</context>
<context>
    <name>corvane::MainWindow</name>
    <message>
        <source>Exit &amp;Full Screen</source>
        <translation>&amp;Vollbild beenden</translation>
    </message>
    <message>
        <source>Enter &amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
</context>
<context>
    <name>corvane::NoAdapterPage</name>
    <message>
        <source>No adapter is in this dump</source>
        <translation>In diesem Auszug ist kein Adapter</translation>
    </message>
    <message>
        <source>The computer had no adapter connected when the dump was made, or its driver did not run.</source>
        <translation>Als der Auszug entstand, war am Computer kein Adapter angeschlossen, oder sein Treiber lief nicht.</translation>
    </message>
</context>
<context>
    <name>corvane::QtPrompts</name>
    <message>
        <source>The update is still running.</source>
        <translation>Die Aktualisierung läuft noch.</translation>
    </message>
    <message>
        <source>Quitting now can leave an adapter without working firmware and volumes unmounted.</source>
        <translation>Wer jetzt beendet, lässt vielleicht einen Adapter ohne lauffähige Firmware und Volumes ausgehängt zurück.</translation>
    </message>
    <message>
        <source>Keep Waiting</source>
        <translation>Weiter warten</translation>
    </message>
    <message>
        <source>Quit Anyway</source>
        <translation>Trotzdem beenden</translation>
    </message>
</context>
<context>
    <name>corvane::UpdateTableModel</name>
    <message>
        <source>Install</source>
        <translation>Installieren</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisierung</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
</context>
<context>
    <name>corvane::WindowSession</name>
    <message>
        <source>%1 (read-only) - CORVANE Utility</source>
        <translation>%1 (schreibgeschützt) - CORVANE Utility</translation>
    </message>
    <message>
        <source>%1 - CORVANE Utility</source>
        <translation>%1 - CORVANE Utility</translation>
    </message>
    <message>
        <source>Open Support Folder</source>
        <translation>Supportordner öffnen</translation>
    </message>
    <message>
        <source>Registry Dump</source>
        <translation>Registry-Auszug</translation>
    </message>
    <message>
        <source>Open Registry Dump</source>
        <translation>Registry-Auszug öffnen</translation>
    </message>
</context>
</TS>
