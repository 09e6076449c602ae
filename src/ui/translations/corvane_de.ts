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
