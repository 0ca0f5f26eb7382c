<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>AboutView</name>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AboutWindowController</name>
    <message>
        <source>About Dwellkey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Support...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>AutostartLoginItem</name>
    <message>
        <source>Dwellkey is not installed: there is no %1 in the applications folders.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is switched off in the desktop&apos;s own settings. Switch it on there, or remove the file &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be written: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be removed: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DelaySlider</name>
    <message>
        <source>%1 seconds</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>IntroView</name>
    <message>
        <source>Welcome to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You can access your %1 Preferences by clicking the %1 menu bar item.</source>
        <translation>You can open the %1 preferences by clicking the %1 icon in the tray.</translation>
    </message>
    <message>
        <source>This desktop has no place for it. Start %1 again to open the Preferences.</source>
        <translation>This desktop has no tray. Start %1 again from the applications menu to open the preferences.</translation>
    </message>
    <message>
        <source>Open Preferences...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>IntroViewController</name>
    <message>
        <source>Welcome to Dwellkey</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record the shortcuts that Dwellkey guards in its preferences. Hold them to quit an application or to close its window.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Preferences...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeyNames</name>
    <message>
        <source>Return</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tab</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Space</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Esc</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mute</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Home</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Left</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Right</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Down</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Up</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Super</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keypad %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KeyRecorder</name>
    <message>
        <source>Type shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Record shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program has taken this shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Dwellkey uses this shortcut already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This keyboard cannot type this shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop refused this shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot record shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please include at least one modifier key (%1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift (%1) by itself is not a valid modifier key. Please include at least one additional modifier key (%2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is reserved system-wide. Most system key commands can be changed in &quot;%2&quot;.</source>
        <translation>&quot;%1&quot; is reserved by the desktop. Most shortcuts of the desktop can be changed in &quot;%2&quot;.</translation>
    </message>
    <message>
        <source>System Settings › Keyboard › Keyboard Shortcuts</source>
        <translation>the keyboard page of the settings</translation>
    </message>
</context>
<context>
    <name>LinuxApplicationCatalog</name>
    <message>
        <source>It cannot be read as an application: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an installed application.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>Preferences...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Dwellkey</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OpenPanel</name>
    <message>
        <source>Add Application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applications</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesView</name>
    <message>
        <source>Use Dwellkey with all apps except...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only use Dwellkey with the following apps...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesViewModel</name>
    <message>
        <source>Login Item Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to enable launch at login: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to disable launch at login: </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PreferencesWindowController</name>
    <message>
        <source>Dwellkey Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit App Shortcut:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit App Shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Window Shortcut:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Window Shortcut</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold For:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold For</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the keyboard shortcuts that you would like Dwellkey to override, and how long they must be held.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use Dwellkey with all apps except...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only use Dwellkey with the following apps...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applications in the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove the selected applications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>⌘ is Ctrl, ⌥ is Alt, ⇧ is Shift, ⌃ is Super</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimerManager</name>
    <message>
        <source>Missing app files, please reinstall the application.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not close the window for %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to Close Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Accessibility Permission Needed</source>
        <translation>Dwellkey Cannot Close Windows Here</translation>
    </message>
    <message>
        <source>Dwellkey needs accessibility permission to close app windows. Click &apos;Open System Preferences&apos; and enable Dwellkey in the Accessibility section.</source>
        <translation>To close the windows of applications, Dwellkey needs the accessibility service of the desktop. Click &apos;Open Settings&apos; and switch it on there.</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Open Settings</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimerView</name>
    <message>
        <source>Hold to Quit App</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold to Close Window</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TimerWindowController</name>
    <message>
        <source>Timer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold to Quit App</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hold to Close Window</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>X11Workspace</name>
    <message>
        <source>The window manager of this session does not tell which window is in front.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No window manager is running that could tell which window is in front.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dwellkey::ApplicationPicker</name>
    <message>
        <source>Running</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose File...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applications (*.desktop)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dwellkey::AppsListView</name>
    <message>
        <source>App not found on disk</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applications</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dwellkey::DwellkeyVersion</name>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dwellkey::KeyRecorderSegmentedControl</name>
    <message>
        <source>%1: %2</source>
        <comment>purpose: shortcut</comment>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dwellkey::PreferencesView</name>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scope</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open automatically at login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit App Shortcut:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close Window Shortcut:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose the keyboard shortcuts that you would like Dwellkey to override.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delay Until Activation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove selected applications</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show menu bar icon</source>
        <translation>Show icon in the tray</translation>
    </message>
    <message>
        <source>Use the Dwellkey application in Finder to make this window visible again.</source>
        <translation>To see this window again, start Dwellkey from the applications menu.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Failed to add app</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dwellkey::SupportButton</name>
    <message>
        <source>Support...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>index</source>
        <extracomment>The file name of the help page in your language, without &quot;.html&quot;.</extracomment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No application opens web pages. The page is in the file %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The page is missing. Installing Dwellkey anew brings it back.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not open the help page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>dwellkey::TimerView</name>
    <message>
        <source>Timer</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
