<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutView</name>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
</context>
<context>
    <name>AboutWindowController</name>
    <message>
        <source>About Dwellkey</source>
        <translation>Über Dwellkey</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Support...</source>
        <translation>Hilfe …</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>AutostartLoginItem</name>
    <message>
        <source>Dwellkey is not installed: there is no %1 in the applications folders.</source>
        <translation>Dwellkey ist nicht installiert: In den Ordnern der Anwendungen gibt es keine Datei %1.</translation>
    </message>
    <message>
        <source>It is switched off in the desktop&apos;s own settings. Switch it on there, or remove the file &quot;%1&quot;.</source>
        <translation>Der Start ist in den Einstellungen des Desktops ausgeschaltet. Schalten Sie ihn dort ein oder löschen Sie die Datei „%1“.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be written: </source>
        <translation>Die Datei „%1“ kann nicht geschrieben werden: </translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be removed: </source>
        <translation>Die Datei „%1“ kann nicht gelöscht werden: </translation>
    </message>
</context>
<context>
    <name>DefaultsBindings</name>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
</context>
<context>
    <name>DelaySlider</name>
    <message>
        <source>%1 seconds</source>
        <translation>%1 Sekunden</translation>
    </message>
</context>
<context>
    <name>HoldLesson</name>
    <message>
        <source>That is all.</source>
        <translation>Das ist alles.</translation>
    </message>
    <message>
        <source>Try it: here it closes nothing.</source>
        <translation>Probieren Sie es aus: Hier wird nichts geschlossen.</translation>
    </message>
    <message>
        <source>Hold %1 for %2 seconds to quit.</source>
        <extracomment>%1 is a key combination, %2 a number of seconds such as 2 or 1.4</extracomment>
        <translation>Halten Sie zum Beenden %1 %2 Sekunden lang gedrückt.</translation>
    </message>
    <message>
        <source>%1 is not guarded: another program has taken it, or this keyboard lacks it.</source>
        <translation>%1 wird nicht bewacht: Ein anderes Programm hat die Tasten belegt, oder sie fehlen auf dieser Tastatur.</translation>
    </message>
    <message>
        <source>Hold %1 for %2 seconds to close a window.</source>
        <translation>Halten Sie zum Schließen eines Fensters %1 %2 Sekunden lang gedrückt.</translation>
    </message>
    <message>
        <source>No shortcut is guarded yet: set one in the Preferences.</source>
        <translation>Noch wird kein Tastenkürzel bewacht. Legen Sie in den Einstellungen eines fest.</translation>
    </message>
</context>
<context>
    <name>IntroView</name>
    <message>
        <source>Welcome to %1</source>
        <translation>Willkommen bei %1</translation>
    </message>
    <message>
        <source>You can access your %1 Preferences by clicking the %1 menu bar item.</source>
        <translation>Die Einstellungen von %1 öffnen Sie mit einem Klick auf das Symbol von %1 in der Taskleiste.</translation>
    </message>
    <message>
        <source>This desktop has no place for it. Start %1 again to open the Preferences.</source>
        <translation>Dieser Desktop zeigt keine Programmsymbole an. Starten Sie %1 noch einmal aus dem Anwendungsmenü, um die Einstellungen zu öffnen.</translation>
    </message>
    <message>
        <source>Open Preferences...</source>
        <translation>Einstellungen öffnen …</translation>
    </message>
</context>
<context>
    <name>IntroViewController</name>
    <message>
        <source>Welcome to Dwellkey</source>
        <translation>Willkommen bei Dwellkey</translation>
    </message>
    <message>
        <source>Record the shortcuts that Dwellkey guards in its preferences. Hold them to quit an application or to close its window.</source>
        <translation>Nehmen Sie in den Einstellungen die Tastenkürzel auf, die Dwellkey bewachen soll. Halten Sie sie gedrückt, um eine Anwendung zu beenden oder ihr Fenster zu schließen.</translation>
    </message>
    <message>
        <source>Open Preferences...</source>
        <translation>Einstellungen öffnen …</translation>
    </message>
</context>
<context>
    <name>KeyNames</name>
    <message>
        <source>Return</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Lauter</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Leiser</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Pos1</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Bild auf</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Bild ab</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Runter</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Hoch</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Ziffernblock Eingabe</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Keypad %1</source>
        <translation>Ziffernblock %1</translation>
    </message>
</context>
<context>
    <name>KeyRecorder</name>
    <message>
        <source>Type shortcut</source>
        <translation>Kürzel drücken</translation>
    </message>
    <message>
        <source>Record shortcut</source>
        <translation>Kürzel aufnehmen</translation>
    </message>
    <message>
        <source>Another program has taken this shortcut.</source>
        <translation>Ein anderes Programm hat dieses Tastenkürzel belegt.</translation>
    </message>
    <message>
        <source>Dwellkey uses this shortcut already.</source>
        <translation>Dwellkey verwendet dieses Tastenkürzel bereits.</translation>
    </message>
    <message>
        <source>This keyboard cannot type this shortcut.</source>
        <translation>Mit dieser Tastatur lässt sich das Tastenkürzel nicht eingeben.</translation>
    </message>
    <message>
        <source>The desktop refused this shortcut.</source>
        <translation>Der Desktop hat dieses Tastenkürzel abgelehnt.</translation>
    </message>
    <message>
        <source>Clear shortcut</source>
        <translation>Tastenkürzel löschen</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cannot record shortcut.</source>
        <translation>Das Tastenkürzel kann nicht aufgenommen werden.</translation>
    </message>
    <message>
        <source>Please include at least one modifier key (%1).</source>
        <translation>Bitte verwenden Sie mindestens eine Sondertaste (%1).</translation>
    </message>
    <message>
        <source>Shift (%1) by itself is not a valid modifier key. Please include at least one additional modifier key (%2).</source>
        <translation>Die Umschalttaste (%1) allein genügt nicht. Bitte verwenden Sie mindestens eine weitere Sondertaste (%2).</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is reserved system-wide. Most system key commands can be changed in &quot;%2&quot;.</source>
        <translation>„%1“ ist systemweit reserviert. Die meisten Tastenkürzel des Systems lassen sich unter „%2“ ändern.</translation>
    </message>
    <message>
        <source>System Settings › Keyboard › Keyboard Shortcuts</source>
        <translation>Systemeinstellungen › Tastatur › Tastenkürzel</translation>
    </message>
    <message>
        <source>The stored shortcut cannot be read. Record it again.</source>
        <translation>Das gespeicherte Tastenkürzel ist nicht lesbar. Nehmen Sie es neu auf.</translation>
    </message>
</context>
<context>
    <name>LinuxApplicationCatalog</name>
    <message>
        <source>It cannot be read as an application: %1</source>
        <translation>Dies lässt sich nicht als Anwendung lesen: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an installed application.</source>
        <translation>„%1“ ist keine installierte Anwendung.</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>Preferences...</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>Über …</translation>
    </message>
    <message>
        <source>Quit Dwellkey</source>
        <translation>Dwellkey beenden</translation>
    </message>
</context>
<context>
    <name>OpenPanel</name>
    <message>
        <source>Add Application</source>
        <translation>Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
</context>
<context>
    <name>PreferencesView</name>
    <message>
        <source>Use Dwellkey with all apps except...</source>
        <translation>Dwellkey für alle Anwendungen verwenden außer …</translation>
    </message>
    <message>
        <source>Only use Dwellkey with the following apps...</source>
        <translation>Dwellkey nur für diese Anwendungen verwenden …</translation>
    </message>
</context>
<context>
    <name>PreferencesViewModel</name>
    <message>
        <source>Login Item Error</source>
        <translation>Fehler beim Start mit der Sitzung</translation>
    </message>
    <message>
        <source>Unable to enable launch at login: </source>
        <translation>Der Start bei der Anmeldung kann nicht eingeschaltet werden: </translation>
    </message>
    <message>
        <source>Unable to disable launch at login: </source>
        <translation>Der Start bei der Anmeldung kann nicht ausgeschaltet werden: </translation>
    </message>
</context>
<context>
    <name>PreferencesWindowController</name>
    <message>
        <source>Dwellkey Preferences</source>
        <translation>Dwellkey-Einstellungen</translation>
    </message>
    <message>
        <source>Quit App Shortcut:</source>
        <translation>App beenden:</translation>
    </message>
    <message>
        <source>Quit App Shortcut</source>
        <translation>App beenden</translation>
    </message>
    <message>
        <source>Close Window Shortcut:</source>
        <translation>Fenster schließen:</translation>
    </message>
    <message>
        <source>Close Window Shortcut</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>Hold For:</source>
        <translation>Halten für:</translation>
    </message>
    <message>
        <source>Hold For</source>
        <translation>Halten für</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> Sekunden</translation>
    </message>
    <message>
        <source>Choose the keyboard shortcuts that you would like Dwellkey to override, and how long they must be held.</source>
        <translation>Wählen Sie die Tastenkürzel, die Dwellkey abfangen soll, und wie lange sie gehalten werden müssen.</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>Use Dwellkey with all apps except...</source>
        <translation>Dwellkey für alle Anwendungen verwenden außer …</translation>
    </message>
    <message>
        <source>Only use Dwellkey with the following apps...</source>
        <translation>Dwellkey nur für diese Anwendungen verwenden …</translation>
    </message>
    <message>
        <source>Applications in the list</source>
        <translation>Anwendungen der Liste</translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation>Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Remove the selected applications</source>
        <translation>Ausgewählte Anwendungen entfernen</translation>
    </message>
    <message>
        <source>⌘ is Ctrl, ⌥ is Alt, ⇧ is Shift, ⌃ is Super</source>
        <translation>⌘ ist Strg, ⌥ ist Alt, ⇧ ist Umschalt, ⌃ ist Super</translation>
    </message>
</context>
<context>
    <name>TimerManager</name>
    <message>
        <source>Missing app files, please reinstall the application.</source>
        <translation>Dateien der Anwendung fehlen. Bitte installieren Sie sie neu.</translation>
    </message>
    <message>
        <source>Could not close the window for %1.</source>
        <translation>Das Fenster von %1 konnte nicht geschlossen werden.</translation>
    </message>
    <message>
        <source>Unable to Close Window</source>
        <translation>Fenster kann nicht geschlossen werden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Accessibility Permission Needed</source>
        <translation>Erlaubnis zur Bedienungshilfe nötig</translation>
    </message>
    <message>
        <source>Dwellkey needs accessibility permission to close app windows. Click &apos;Open System Preferences&apos; and enable Dwellkey in the Accessibility section.</source>
        <translation>Dwellkey braucht die Erlaubnis zur Bedienungshilfe, um Fenster von Anwendungen zu schließen. Klicken Sie auf „Systemeinstellungen öffnen“ und schalten Sie Dwellkey im Abschnitt „Barrierefreiheit“ ein.</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Systemeinstellungen öffnen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>TimerView</name>
    <message>
        <source>Hold to Quit App</source>
        <translation>Halten, um die App zu beenden</translation>
    </message>
    <message>
        <source>Hold to Close Window</source>
        <translation>Halten, um das Fenster zu schließen</translation>
    </message>
</context>
<context>
    <name>TimerWindowController</name>
    <message>
        <source>Timer</source>
        <translation>Verzögerung</translation>
    </message>
    <message>
        <source>Hold to Quit App</source>
        <translation>Halten, um die App zu beenden</translation>
    </message>
    <message>
        <source>Hold to Close Window</source>
        <translation>Halten, um das Fenster zu schließen</translation>
    </message>
</context>
<context>
    <name>X11Workspace</name>
    <message>
        <source>The window manager of this session does not tell which window is in front.</source>
        <translation>Die Fensterverwaltung dieser Sitzung gibt nicht an, welches Fenster im Vordergrund ist.</translation>
    </message>
    <message>
        <source>No window manager is running that could tell which window is in front.</source>
        <translation>Es läuft keine Fensterverwaltung, die angeben könnte, welches Fenster im Vordergrund ist.</translation>
    </message>
</context>
<context>
    <name>dwellkey::ApplicationPicker</name>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Add Application</source>
        <translation>Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Anwendungen suchen</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Choose File...</source>
        <translation>Datei wählen …</translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation>Anwendung wählen</translation>
    </message>
    <message>
        <source>Applications (*.desktop)</source>
        <translation>Anwendungen (*.desktop)</translation>
    </message>
</context>
<context>
    <name>dwellkey::AppsListView</name>
    <message>
        <source>App not found on disk</source>
        <translation>Anwendung nicht gefunden</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Anwendungen</translation>
    </message>
</context>
<context>
    <name>dwellkey::DwellkeyVersion</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
</context>
<context>
    <name>dwellkey::KeyRecorderSegmentedControl</name>
    <message>
        <source>%1: %2</source>
        <comment>purpose: shortcut</comment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>dwellkey::PreferencesView</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>Geltungsbereich</translation>
    </message>
    <message>
        <source>Open automatically at login</source>
        <translation>Bei der Anmeldung automatisch starten</translation>
    </message>
    <message>
        <source>Quit App Shortcut:</source>
        <translation>App beenden:</translation>
    </message>
    <message>
        <source>Close Window Shortcut:</source>
        <translation>Fenster schließen:</translation>
    </message>
    <message>
        <source>Choose the keyboard shortcuts that you would like Dwellkey to override.</source>
        <translation>Wählen Sie die Tastenkürzel, die Dwellkey abfangen soll.</translation>
    </message>
    <message>
        <source>Delay Until Activation</source>
        <translation>Verzögerung bis zur Auslösung</translation>
    </message>
    <message>
        <source>Add application</source>
        <translation>Anwendung hinzufügen</translation>
    </message>
    <message>
        <source>Remove selected applications</source>
        <translation>Ausgewählte Anwendungen entfernen</translation>
    </message>
    <message>
        <source>Show menu bar icon</source>
        <translation>Symbol in der Taskleiste anzeigen</translation>
    </message>
    <message>
        <source>Use the Dwellkey application in Finder to make this window visible again.</source>
        <translation>Um dieses Fenster wieder anzuzeigen, starten Sie Dwellkey aus dem Anwendungsmenü.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Failed to add app</source>
        <translation>Anwendung konnte nicht hinzugefügt werden</translation>
    </message>
</context>
<context>
    <name>dwellkey::SupportButton</name>
    <message>
        <source>Support...</source>
        <translation>Hilfe …</translation>
    </message>
    <message>
        <source>index</source>
        <extracomment>The file name of the help page in your language, without &quot;.html&quot;.</extracomment>
        <translation>index.de</translation>
    </message>
    <message>
        <source>No application opens web pages. The page is in the file %1.</source>
        <translation>Keine Anwendung öffnet Webseiten. Die Seite liegt in der Datei %1.</translation>
    </message>
    <message>
        <source>The page is missing. Installing Dwellkey anew brings it back.</source>
        <translation>Die Seite fehlt. Eine Neuinstallation von Dwellkey bringt sie zurück.</translation>
    </message>
    <message>
        <source>Could not open the help page</source>
        <translation>Die Hilfeseite konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>dwellkey::TimerView</name>
    <message>
        <source>Timer</source>
        <translation>Verzögerung</translation>
    </message>
</context>
</TS>
