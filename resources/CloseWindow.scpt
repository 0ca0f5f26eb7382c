-- Closes the front window of the application named below; its name takes the rest of the line.
tell application <<app>>
close front window
