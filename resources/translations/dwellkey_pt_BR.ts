<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>AboutView</name>
    <message>
        <source>About</source>
        <translation>Sobre</translation>
    </message>
</context>
<context>
    <name>AboutWindowController</name>
    <message>
        <source>About Dwellkey</source>
        <translation>Sobre o Dwellkey</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Versão</translation>
    </message>
    <message>
        <source>Support...</source>
        <translation>Suporte...</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Versão %1</translation>
    </message>
</context>
<context>
    <name>AutostartLoginItem</name>
    <message>
        <source>Dwellkey is not installed: there is no %1 in the applications folders.</source>
        <translation>O Dwellkey não está instalado: não há %1 nas pastas de aplicativos.</translation>
    </message>
    <message>
        <source>It is switched off in the desktop&apos;s own settings. Switch it on there, or remove the file &quot;%1&quot;.</source>
        <translation>A inicialização está desativada nas configurações da área de trabalho. Ative-a lá ou remova o arquivo “%1”.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be written: </source>
        <translation>Não é possível gravar o arquivo “%1”: </translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be removed: </source>
        <translation>Não é possível remover o arquivo “%1”: </translation>
    </message>
</context>
<context>
    <name>DefaultsBindings</name>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
</context>
<context>
    <name>DelaySlider</name>
    <message>
        <source>%1 seconds</source>
        <translation>%1 segundos</translation>
    </message>
</context>
<context>
    <name>HoldLesson</name>
    <message>
        <source>That is all.</source>
        <translation>É só isso.</translation>
    </message>
    <message>
        <source>Try it: here it closes nothing.</source>
        <translation>Experimente: aqui nada será fechado.</translation>
    </message>
    <message>
        <source>Hold %1 for %2 seconds to quit.</source>
        <extracomment>%1 is a key combination, %2 a number of seconds such as 2 or 1.4</extracomment>
        <translation>Segure %1 por %2 segundos para encerrar o aplicativo.</translation>
    </message>
    <message>
        <source>%1 is not guarded: another program has taken it, or this keyboard lacks it.</source>
        <translation>%1 não está protegido: outro programa já usa essas teclas ou elas não existem neste teclado.</translation>
    </message>
    <message>
        <source>Hold %1 for %2 seconds to close a window.</source>
        <translation>Segure %1 por %2 segundos para fechar uma janela.</translation>
    </message>
    <message>
        <source>No shortcut is guarded yet: set one in the Preferences.</source>
        <translation>Nenhum atalho está protegido ainda: defina um nas preferências.</translation>
    </message>
</context>
<context>
    <name>IntroView</name>
    <message>
        <source>Welcome to %1</source>
        <translation>Boas-vindas ao %1</translation>
    </message>
    <message>
        <source>You can access your %1 Preferences by clicking the %1 menu bar item.</source>
        <translation>Para abrir as preferências do %1, clique no ícone do %1 na bandeja do sistema.</translation>
    </message>
    <message>
        <source>This desktop has no place for it. Start %1 again to open the Preferences.</source>
        <translation>Este ambiente não tem bandeja do sistema. Inicie o %1 novamente pelo menu de aplicativos para abrir as preferências.</translation>
    </message>
    <message>
        <source>Open Preferences...</source>
        <translation>Abrir preferências...</translation>
    </message>
</context>
<context>
    <name>IntroViewController</name>
    <message>
        <source>Welcome to Dwellkey</source>
        <translation>Boas-vindas ao Dwellkey</translation>
    </message>
    <message>
        <source>Record the shortcuts that Dwellkey guards in its preferences. Hold them to quit an application or to close its window.</source>
        <translation>Grave nas preferências os atalhos que o Dwellkey deve proteger. Segure-os para encerrar um aplicativo ou fechar sua janela.</translation>
    </message>
    <message>
        <source>Open Preferences...</source>
        <translation>Abrir preferências...</translation>
    </message>
</context>
<context>
    <name>KeyNames</name>
    <message>
        <source>Return</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espaço</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Volume Up</source>
        <translation>Aumentar volume</translation>
    </message>
    <message>
        <source>Volume Down</source>
        <translation>Diminuir volume</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Mudo</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Esquerda</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Direita</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Abaixo</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Acima</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Keypad Enter</source>
        <translation>Enter do teclado numérico</translation>
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
        <translation>Shift</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Keypad %1</source>
        <translation>%1 do teclado numérico</translation>
    </message>
</context>
<context>
    <name>KeyRecorder</name>
    <message>
        <source>Type shortcut</source>
        <translation>Pressione o atalho</translation>
    </message>
    <message>
        <source>Record shortcut</source>
        <translation>Gravar atalho</translation>
    </message>
    <message>
        <source>Another program has taken this shortcut.</source>
        <translation>Outro programa já usa este atalho.</translation>
    </message>
    <message>
        <source>Dwellkey uses this shortcut already.</source>
        <translation>O Dwellkey já usa este atalho.</translation>
    </message>
    <message>
        <source>This keyboard cannot type this shortcut.</source>
        <translation>Este teclado não consegue digitar este atalho.</translation>
    </message>
    <message>
        <source>The desktop refused this shortcut.</source>
        <translation>A área de trabalho recusou este atalho.</translation>
    </message>
    <message>
        <source>Clear shortcut</source>
        <translation>Limpar atalho</translation>
    </message>
    <message>
        <source>Stop recording</source>
        <translation>Parar gravação</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cannot record shortcut.</source>
        <translation>Não é possível gravar o atalho.</translation>
    </message>
    <message>
        <source>Please include at least one modifier key (%1).</source>
        <translation>Inclua pelo menos uma tecla modificadora (%1).</translation>
    </message>
    <message>
        <source>Shift (%1) by itself is not a valid modifier key. Please include at least one additional modifier key (%2).</source>
        <translation>Shift (%1) sozinha não é uma tecla modificadora válida. Inclua pelo menos mais uma tecla modificadora (%2).</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is reserved system-wide. Most system key commands can be changed in &quot;%2&quot;.</source>
        <translation>“%1” está reservado em todo o sistema. A maioria dos atalhos do sistema pode ser alterada em “%2”.</translation>
    </message>
    <message>
        <source>System Settings › Keyboard › Keyboard Shortcuts</source>
        <translation>Configurações do sistema › Teclado › Atalhos de teclado</translation>
    </message>
    <message>
        <source>The stored shortcut cannot be read. Record it again.</source>
        <translation>O atalho salvo não pode ser lido. Grave-o novamente.</translation>
    </message>
</context>
<context>
    <name>LinuxApplicationCatalog</name>
    <message>
        <source>It cannot be read as an application: %1</source>
        <translation>Não é possível lê-lo como um aplicativo: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not an installed application.</source>
        <translation>“%1” não é um aplicativo instalado.</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>Preferences...</source>
        <translation>Preferências...</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>Sobre...</translation>
    </message>
    <message>
        <source>Quit Dwellkey</source>
        <translation>Encerrar o Dwellkey</translation>
    </message>
</context>
<context>
    <name>OpenPanel</name>
    <message>
        <source>Add Application</source>
        <translation>Adicionar aplicativo</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Aplicativos</translation>
    </message>
</context>
<context>
    <name>PreferencesView</name>
    <message>
        <source>Use Dwellkey with all apps except...</source>
        <translation>Usar o Dwellkey com todos os aplicativos, exceto...</translation>
    </message>
    <message>
        <source>Only use Dwellkey with the following apps...</source>
        <translation>Usar o Dwellkey somente com estes aplicativos...</translation>
    </message>
</context>
<context>
    <name>PreferencesViewModel</name>
    <message>
        <source>Login Item Error</source>
        <translation>Erro ao iniciar com a sessão</translation>
    </message>
    <message>
        <source>Unable to enable launch at login: </source>
        <translation>Não foi possível ativar a inicialização com a sessão: </translation>
    </message>
    <message>
        <source>Unable to disable launch at login: </source>
        <translation>Não foi possível desativar a inicialização com a sessão: </translation>
    </message>
</context>
<context>
    <name>PreferencesWindowController</name>
    <message>
        <source>Dwellkey Preferences</source>
        <translation>Preferências do Dwellkey</translation>
    </message>
    <message>
        <source>Quit App Shortcut:</source>
        <translation>Atalho para encerrar aplicativo:</translation>
    </message>
    <message>
        <source>Quit App Shortcut</source>
        <translation>Atalho para encerrar aplicativo</translation>
    </message>
    <message>
        <source>Close Window Shortcut:</source>
        <translation>Atalho para fechar janela:</translation>
    </message>
    <message>
        <source>Close Window Shortcut</source>
        <translation>Atalho para fechar janela</translation>
    </message>
    <message>
        <source>Hold For:</source>
        <translation>Segurar por:</translation>
    </message>
    <message>
        <source>Hold For</source>
        <translation>Segurar por</translation>
    </message>
    <message>
        <source> seconds</source>
        <translation> segundos</translation>
    </message>
    <message>
        <source>Choose the keyboard shortcuts that you would like Dwellkey to override, and how long they must be held.</source>
        <translation>Escolha os atalhos de teclado que o Dwellkey deve interceptar e por quanto tempo devem ser segurados.</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Aplicativos</translation>
    </message>
    <message>
        <source>Use Dwellkey with all apps except...</source>
        <translation>Usar o Dwellkey com todos os aplicativos, exceto...</translation>
    </message>
    <message>
        <source>Only use Dwellkey with the following apps...</source>
        <translation>Usar o Dwellkey somente com estes aplicativos...</translation>
    </message>
    <message>
        <source>Applications in the list</source>
        <translation>Aplicativos da lista</translation>
    </message>
    <message>
        <source>Add an application</source>
        <translation>Adicionar um aplicativo</translation>
    </message>
    <message>
        <source>Remove the selected applications</source>
        <translation>Remover os aplicativos selecionados</translation>
    </message>
    <message>
        <source>⌘ is Ctrl, ⌥ is Alt, ⇧ is Shift, ⌃ is Super</source>
        <translation>⌘ é Ctrl, ⌥ é Alt, ⇧ é Shift, ⌃ é Super</translation>
    </message>
</context>
<context>
    <name>TimerManager</name>
    <message>
        <source>Missing app files, please reinstall the application.</source>
        <translation>Faltam arquivos do aplicativo. Reinstale-o.</translation>
    </message>
    <message>
        <source>Could not close the window for %1.</source>
        <translation>Não foi possível fechar a janela de %1.</translation>
    </message>
    <message>
        <source>Unable to Close Window</source>
        <translation>Não é possível fechar a janela</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Accessibility Permission Needed</source>
        <translation>Permissão de acessibilidade necessária</translation>
    </message>
    <message>
        <source>Dwellkey needs accessibility permission to close app windows. Click &apos;Open System Preferences&apos; and enable Dwellkey in the Accessibility section.</source>
        <translation>O Dwellkey precisa da permissão de acessibilidade para fechar janelas de aplicativos. Clique em “Abrir configurações do sistema” e ative o Dwellkey na seção Acessibilidade.</translation>
    </message>
    <message>
        <source>Open System Preferences</source>
        <translation>Abrir configurações do sistema</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>TimerView</name>
    <message>
        <source>Hold to Quit App</source>
        <translation>Segure para encerrar o aplicativo</translation>
    </message>
    <message>
        <source>Hold to Close Window</source>
        <translation>Segure para fechar a janela</translation>
    </message>
</context>
<context>
    <name>TimerWindowController</name>
    <message>
        <source>Timer</source>
        <translation>Temporizador</translation>
    </message>
    <message>
        <source>Hold to Quit App</source>
        <translation>Segure para encerrar o aplicativo</translation>
    </message>
    <message>
        <source>Hold to Close Window</source>
        <translation>Segure para fechar a janela</translation>
    </message>
</context>
<context>
    <name>X11Workspace</name>
    <message>
        <source>The window manager of this session does not tell which window is in front.</source>
        <translation>O gerenciador de janelas desta sessão não informa qual janela está na frente.</translation>
    </message>
    <message>
        <source>No window manager is running that could tell which window is in front.</source>
        <translation>Não há nenhum gerenciador de janelas em execução que possa informar qual janela está na frente.</translation>
    </message>
</context>
<context>
    <name>dwellkey::ApplicationPicker</name>
    <message>
        <source>Running</source>
        <translation>Em execução</translation>
    </message>
    <message>
        <source>Add Application</source>
        <translation>Adicionar aplicativo</translation>
    </message>
    <message>
        <source>Search applications</source>
        <translation>Pesquisar aplicativos</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Aplicativos</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Adicionar</translation>
    </message>
    <message>
        <source>Choose File...</source>
        <translation>Escolher arquivo...</translation>
    </message>
    <message>
        <source>Choose Application</source>
        <translation>Escolher aplicativo</translation>
    </message>
    <message>
        <source>Applications (*.desktop)</source>
        <translation>Aplicativos (*.desktop)</translation>
    </message>
</context>
<context>
    <name>dwellkey::AppsListView</name>
    <message>
        <source>App not found on disk</source>
        <translation>Aplicativo não encontrado no disco</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Aplicativos</translation>
    </message>
</context>
<context>
    <name>dwellkey::DwellkeyVersion</name>
    <message>
        <source>Version %1</source>
        <translation>Versão %1</translation>
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
        <translation>Preferências</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>Escopo</translation>
    </message>
    <message>
        <source>Open automatically at login</source>
        <translation>Abrir automaticamente ao iniciar a sessão</translation>
    </message>
    <message>
        <source>Quit App Shortcut:</source>
        <translation>Atalho para encerrar aplicativo:</translation>
    </message>
    <message>
        <source>Close Window Shortcut:</source>
        <translation>Atalho para fechar janela:</translation>
    </message>
    <message>
        <source>Choose the keyboard shortcuts that you would like Dwellkey to override.</source>
        <translation>Escolha os atalhos de teclado que o Dwellkey deve interceptar.</translation>
    </message>
    <message>
        <source>Delay Until Activation</source>
        <translation>Tempo até a ativação</translation>
    </message>
    <message>
        <source>Add application</source>
        <translation>Adicionar aplicativo</translation>
    </message>
    <message>
        <source>Remove selected applications</source>
        <translation>Remover aplicativos selecionados</translation>
    </message>
    <message>
        <source>Show menu bar icon</source>
        <translation>Mostrar ícone na bandeja do sistema</translation>
    </message>
    <message>
        <source>Use the Dwellkey application in Finder to make this window visible again.</source>
        <translation>Para ver esta janela de novo, inicie o Dwellkey pelo menu de aplicativos.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Failed to add app</source>
        <translation>Não foi possível adicionar o aplicativo</translation>
    </message>
</context>
<context>
    <name>dwellkey::SupportButton</name>
    <message>
        <source>Support...</source>
        <translation>Suporte...</translation>
    </message>
    <message>
        <source>index</source>
        <extracomment>The file name of the help page in your language, without &quot;.html&quot;.</extracomment>
        <translation>index.pt-BR</translation>
    </message>
    <message>
        <source>No application opens web pages. The page is in the file %1.</source>
        <translation>Nenhum aplicativo abre páginas da web. A página está no arquivo %1.</translation>
    </message>
    <message>
        <source>The page is missing. Installing Dwellkey anew brings it back.</source>
        <translation>A página está faltando. Reinstale o Dwellkey para recuperá-la.</translation>
    </message>
    <message>
        <source>Could not open the help page</source>
        <translation>Não foi possível abrir a página de ajuda</translation>
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
        <translation>Temporizador</translation>
    </message>
</context>
</TS>
