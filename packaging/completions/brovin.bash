# bash completion for brovin
_brovin() {
    local cur prev
    _init_completion 2>/dev/null || { cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}; }
    case $prev in
    --folder | --program-folder)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -d -- "$cur")
        return
        ;;
    --nasty)
        mapfile -t COMPREPLY < <(compgen -W "thumbs.db ehthumbs.db .ds_store .apdisk .fseventsd .spotlight-v100" -- "$cur")
        return
        ;;
    --check-language | --keep)
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$cur")
        return
        ;;
    --update-server) return ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "--scan --dry-run --json --folder --yes-this-folder --nasty --keep --spare-carriers --no-spare-carriers --starter-names --scan-now --quiet --dot-underscore --no-dot-underscore
        --check-language --icon-files --no-icon-files --force --no-force --confirm --no-confirm --trash --no-trash --program-folder --update-server
        --help --version" -- "$cur")
}
complete -F _brovin brovin
