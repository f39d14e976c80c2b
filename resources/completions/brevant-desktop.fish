# Completion of brevant-desktop(1) for fish.

complete -c brevant-desktop -f
complete -c brevant-desktop -l picture -xa 'small medium lock-screen island-compact island-minimal island-expanded' -d 'Draw a picture, and end'
complete -c brevant-desktop -s o -l output -rF -d 'File'
complete -c brevant-desktop -l scale -xa '1 1.5 2 3' -d 'Pixels per point'
complete -c brevant-desktop -l do -xa 'pause stop resume' -d 'Do it to what is shown, and end'
complete -c brevant-desktop -l open -x -d 'Do what a link says, and end'
complete -c brevant-desktop -l container -d 'The app-group container' -xa '(__fish_complete_directories)'
complete -c brevant-desktop -l now -x -d 'The time, in seconds since 1970'
complete -c brevant-desktop -l system-version -x -d 'The system version to act for'
complete -c brevant-desktop -l color-scheme -xa 'light dark' -d 'The colours'
complete -c brevant-desktop -l ios-app-on-mac -d 'Act as a phone application on a Mac'
complete -c brevant-desktop -s h -l help -d 'Print the usage'
complete -c brevant-desktop -l version -d 'Print the version'
